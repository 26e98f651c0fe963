// The board: one row per activation, from its announcement to its end, fed by events.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/bloom_filter.h"
#include "board/activation_row.h"
#include "board/board_events.h"
#include "board/row_choice.h"

namespace brelwin {

struct BoardLimits {
  std::size_t MostRows = 10'000;
  std::int64_t SecondsKept = std::int64_t{30} * 24 * 3600;
};

// Grows with every change of a row. 0 is before all of them.
using BoardRevision = std::uint64_t;

class Board {
 public:
  explicit Board(BoardLimits limits = {}) : limits_(limits) {}

  // Whether a skimmer's line of this station concerns the board: asked of every line, most of which are of
  // no station that has a row.
  bool Follows(std::string_view baseCallsign) const {
    return marks_.MayContain(baseCallsign) && ofStation_.contains(std::string(baseCallsign));
  }

  // Takes an event at the time, in UTC, at which the program came to know it. What no row can use, such as a
  // gateway's word on a station without one, is passed over. Events without a base callsign as well.
  void Take(const TimedEvent& event);

  // Puts in a row as it was kept. False, with nothing changed, when its number is held or below 1.
  bool Restore(ActivationRow row);

  // Numbers the rows that begin from here on above this.
  void NumberAbove(RowNumber number) { lastNumber_ = std::max(lastNumber_, number); }

  // Forgets the rows without an event for 30 days, then the oldest ones beyond the most rows. Returns the
  // numbers of those that went.
  std::vector<RowNumber> Forget(DateTime now);

  const std::map<RowNumber, ActivationRow>& Rows() const { return rows_; }
  const ActivationRow* Find(RowNumber number) const;  // null without one

  // The last revision, and the rows that changed after a given one, each once, in the order of their changes.
  BoardRevision Revision() const { return revision_; }
  std::vector<RowNumber> ChangedSince(BoardRevision revision) const;

 private:
  void Apply(const AnnouncementsRead& read, DateTime now);
  void Apply(const SkimmerHeard& heard, DateTime now);
  void Apply(const SotawatchSpotRead& spot, DateTime now);
  void Apply(const SotawatchSpotTakenBack& spot, DateTime now);
  void Apply(const GatewayDecided& decided, DateTime now);

  void MarkGone(const AnnouncementsRead& read, DateTime now);
  void TakeAnnounced(const AnnouncedStation& announced, DateTime now);
  ActivationRow& RowBegun(const StationOnSummit& who, DateTime time);
  ActivationRow& NewRow(const StationOnSummit& who);
  void TakeOver(ActivationRow& from, ActivationRow& to, DateTime time);
  void LeaveOthers(const ActivationRow& current, DateTime time);
  RowsOfStation RowsOf(const std::string& baseCallsign);
  ActivationRow* RowOfReport(const std::string& baseCallsign, std::string_view id);
  void Index(const ActivationRow& row);
  void Remove(RowNumber number);
  void Changed(const ActivationRow& row);

  BoardLimits limits_;
  std::map<RowNumber, ActivationRow> rows_;
  RowNumber lastNumber_ = 0;
  BloomFilter marks_;
  std::unordered_map<std::string, std::vector<RowNumber>> ofStation_;
  std::unordered_map<std::string, RowNumber> ofAlert_;  // by the key of the alert
  BoardRevision revision_ = 0;
  std::unordered_map<RowNumber, BoardRevision> revisionOf_;
  std::map<BoardRevision, RowNumber> byRevision_;
};

}  // namespace brelwin
