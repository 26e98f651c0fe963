// What the gateway wrote down: the spot log in its file, and the journal of the last hours on the Gateway
// tab.
#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "platform/clock.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// " - - ... - ", with that many dashes.
std::string DashLine(std::size_t dashes);

inline constexpr std::size_t ShortSeparatorDashes = 26;
inline constexpr std::size_t LongSeparatorDashes = 41;

struct GatewayLogSpot {
  const Spot& TheSpot;
  std::string_view LogLinePreceeding;
  std::string_view LogLineFollowing;
};

// Appends the entry to "GatewaySpotLog.txt". The spots themselves keep no trace of it: their log lines would
// reach the user's own logs.
void WriteGatewayLogEntry(Host& host, std::initializer_list<GatewayLogSpot> spots);

struct GatewayJournalEntry {
  Instant When;
  DateTime LocalTime;
  std::string Station;
  std::string Frequency;  // MHz
  std::string Words;      // what was decided and why
};

// Keeps the decisions of 12 hours, but not more than 500.
class GatewayJournal {
 public:
  void Add(GatewayJournalEntry entry);

  // One line a decision, newest first.
  std::vector<std::string> Lines() const;

 private:
  std::deque<GatewayJournalEntry> entries_;  // newest first
};

}  // namespace brelwin
