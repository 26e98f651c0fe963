#include "board/board_order.h"

#include <algorithm>
#include <compare>
#include <tuple>
#include <utility>

#include "base/text.h"

namespace brelwin {
namespace {

enum class Group : std::uint8_t { OnTheAir, Due, Announced, Quiet, Finished };

bool WindowIsOver(const RowMoment& moment) {
  const auto span = SpanOf(moment.Row.Facts);
  return !span || span->End < moment.Now;
}

Group GroupOf(const RowMoment& moment) {
  switch (moment.Verdict.State) {
    case ActivationState::Heard:
    case ActivationState::Spotted:
    case ActivationState::HeardAndSpotted: return Group::OnTheAir;
    case ActivationState::Due: return Group::Due;
    case ActivationState::Announced: return Group::Announced;
    case ActivationState::Quiet: return Group::Quiet;
    case ActivationState::OptedOut: return WindowIsOver(moment) ? Group::Finished : Group::Announced;
    case ActivationState::Off:
    case ActivationState::Cancelled:
    case ActivationState::NoShow: return Group::Finished;
  }
  return Group::Finished;
}

// Announced ones by time, all others by the newest event.
std::int64_t RankInGroup(const RowMoment& moment, Group group) {
  const bool isByTime = group == Group::Due || group == Group::Announced;
  const auto* announcement = isByTime ? CurrentAnnouncement(moment.Row.Facts, moment.Now) : nullptr;
  return announcement != nullptr ? announcement->Planned.Seconds : -moment.Row.LastEvent.Seconds;
}

struct Placed {
  bool IsFinished = false;
  CellSortKey Key;  // of the column that the user sorts by
  Group In = Group::Finished;
  std::int64_t Rank = 0;
  RowNumber Number = 0;
};

bool IsBefore(const Placed& left, const Placed& right, bool isDescending) {
  if (left.IsFinished != right.IsFinished) return right.IsFinished;
  if (left.Key.SaysNothing != right.Key.SaysNothing) return right.Key.SaysNothing;
  if (const auto order = left.Key <=> right.Key; std::is_neq(order))
    return isDescending ? std::is_gt(order) : std::is_lt(order);
  return std::tie(left.In, left.Rank, right.Number) < std::tie(right.In, right.Rank, left.Number);
}

bool IsWanted(const RowMoment& moment, const BoardView& view) {
  if (view.OnlyNeeded && !moment.Around.IsNeeded) return false;
  if (view.HidesWorkedToday && moment.Around.IsWorkedToday) return false;
  return HasWords(moment, view.Search);
}

Placed PlaceOf(const RowMoment& moment, const BoardView& view) {
  const auto group = GroupOf(moment);
  Placed placed{group == Group::Finished, {}, group, RankInGroup(moment, group), moment.Row.Number};
  if (view.SortedBy) placed.Key = SortKeyOf(*view.SortedBy, moment);
  return placed;
}

std::string SearchedText(const RowMoment& moment) {
  const auto& who = moment.Row.Who;
  std::string text;
  for (const std::string_view part :
       {std::string_view(who.Station), std::string_view(who.BaseCallsign), std::string_view(who.Summit),
        std::string_view(who.SummitName), std::string_view(moment.Around.SummitName),
        StateWord(moment.Verdict.State)}) {
    text += part;
    text += '\n';
  }
  const auto& tuned = moment.Row.Tuned;
  if (tuned) text.append(BandName(tuned->FrequencyInMhz)).append("\n").append(TuningText(*tuned));
  const auto* announcement = CurrentAnnouncement(moment.Row.Facts, moment.Now);
  if (announcement != nullptr) text += '\n' + announcement->FrequencyModes;
  return UpperCase(text);
}

// Both in capitals: "20M" is in "14.062-CW, 20M-SSB", not in "120M" or "7.20M".
bool HasBand(std::string_view text, std::string_view band) {
  const auto isPartOfName = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
  for (auto at = text.find(band); at != std::string_view::npos; at = text.find(band, at + 1)) {
    const auto end = at + band.size();
    const bool beginsInside = at > 0 && (isPartOfName(text[at - 1]) || text[at - 1] == '.');
    const bool endsInside = end < text.size() && isPartOfName(text[end]);
    if (!beginsInside && !endsInside) return true;
  }
  return false;
}

}  // namespace

bool IsFinished(const RowMoment& moment) {
  return GroupOf(moment) == Group::Finished;
}

bool HasWords(const RowMoment& moment, std::string_view words) {
  if (Trim(words).empty()) return true;
  const auto text = SearchedText(moment);
  const auto wanted = UpperCase(words);
  return std::ranges::all_of(Split(wanted, " "), [&](std::string_view word) {
    return IsNameOfBand(word) ? HasBand(text, word) : Contains(text, word);
  });
}

BoardOrder OrderOf(const Board& board, const BoardView& view, const SurroundingsOf& surroundings,
                   DateTime now) {
  BoardOrder order;
  std::vector<Placed> placed;
  for (const auto& [number, row] : board.Rows()) {
    const auto around = surroundings(row);
    const auto moment = MomentOf(row, around, now);
    if (!IsWanted(moment, view)) continue;
    auto place = PlaceOf(moment, view);
    if (place.IsFinished) ++order.FinishedCount;
    if (!place.IsFinished || view.ShowsFinished) placed.push_back(std::move(place));
  }
  std::ranges::sort(placed, [&](const Placed& left, const Placed& right) {
    return IsBefore(left, right, view.IsDescending);
  });
  for (const auto& place : placed) order.Rows.push_back(place.Number);
  return order;
}

}  // namespace brelwin
