// One activation on the board: who and where, what is known of it, and its story.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/activation_facts.h"
#include "board/board_events.h"
#include "board/tuning.h"

namespace brelwin {

enum class StoryKind : std::uint8_t {
  Announced,
  Amended,
  Withdrawn,
  Heard,  // by a skimmer for the first time, or after a silence
  Spotted,
  QSY,
  Posted,    // by the gateway
  HeldBack,  // by the gateway
  QRT,
  Moved,
};

struct StoryEvent {
  DateTime When;
  StoryKind Kind = StoryKind::Announced;
  std::string Words;

  bool operator==(const StoryEvent&) const = default;
};

// A row keeps its number for good.
using RowNumber = std::int64_t;

struct ActivationRow {
  RowNumber Number = 0;
  StationOnSummit Who;
  ActivationFacts Facts;
  std::optional<Tuning> Tuned;
  std::vector<StoryEvent> Story;     // oldest first; the newest 200
  std::vector<SignalPoint> Signals;  // oldest first; the newest 720
  DateTime LastEvent;                // UTC

  bool operator==(const ActivationRow&) const = default;
};

// Each takes what it is told into the facts, the story and the tuning. The lists of a row are bounded: beyond
// their bounds the oldest entries go.
void TakeAnnouncement(ActivationRow& row, const Announcement& announcement, DateTime now);
void TakeAnnouncementGone(ActivationRow& row, std::string_view key, DateTime now);
void TakeHearing(ActivationRow& row, const Hearing& hearing);
void TakeReport(ActivationRow& row, const Report& report);
void TakeGatewayWord(ActivationRow& row, const GatewayWord& word);
void TakeMove(ActivationRow& row, std::string_view summit, DateTime now);

// True when the row had the report.
bool TakeReportBack(ActivationRow& row, std::string_view id);

// Takes what was not known before: name and points of the summit, and the summit itself.
void LearnPlace(ActivationRow& row, const StationOnSummit& who);

}  // namespace brelwin
