// What the gateway decided in the last hours, in words: for the user to read on the Gateway tab.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "platform/clock.h"

namespace brelwin {

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
