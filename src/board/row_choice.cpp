#include "board/row_choice.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <limits>

namespace brelwin {
namespace {

constexpr std::int64_t StillOnTheAir = std::int64_t{15} * 60;
constexpr std::int64_t SameDay = std::int64_t{12} * 3600;
constexpr std::int64_t EarlyOrLate = std::int64_t{2} * 3600;

bool HasMoved(const ActivationRow& row) {
  return row.Facts.MovedAt.has_value();
}

std::int64_t DistanceTo(const ActivationRow& row, DateTime time) {
  const auto span = SpanOf(row.Facts);
  return span ? SecondsOutside(*span, time) : std::numeric_limits<std::int64_t>::max();
}

bool WasActiveWithin(const ActivationRow& row, std::int64_t seconds, DateTime time) {
  const auto last = LastActivity(row.Facts);
  return last && time.Seconds - last->Seconds < seconds;
}

bool IsOver(const ActivationRow& row, DateTime time) {
  return HasMoved(row) || (LastActivity(row.Facts) && !WasActiveWithin(row, SecondsOfSilence, time));
}

// The row that goes on, fits and is nearest to the time; of two as near the newer one.
template <class Fits>
ActivationRow* Nearest(const RowsOfStation& rows, DateTime time, const Fits& fits) {
  ActivationRow* nearest = nullptr;
  for (auto* row : rows) {
    if (IsOver(*row, time) || !fits(*row)) continue;
    if (nearest == nullptr || DistanceTo(*row, time) <= DistanceTo(*nearest, time)) nearest = row;
  }
  return nearest;
}

bool IsAnnouncedWithin(const ActivationRow& row, std::int64_t seconds, DateTime time) {
  return std::ranges::any_of(row.Facts.Announcements, [&](const Announcement& announcement) {
    return SecondsOutside({announcement.Begin, announcement.End}, time) <= seconds;
  });
}

bool IsNear(const ActivationRow& row, const Announcement& announcement) {
  const auto span = SpanOf(row.Facts);
  return span && announcement.Begin.Seconds - span->End.Seconds < SecondsOfSilence &&
         span->Begin.Seconds - announcement.End.Seconds < SecondsOfSilence;
}

bool IsGivenUp(const ActivationRow& row) {
  return !row.Facts.Announcements.empty() && !LastActivity(row.Facts) &&
         std::ranges::all_of(row.Facts.Announcements, &Announcement::IsGone);
}

}  // namespace

ActivationRow* RowOnSummit(const RowsOfStation& rows, std::string_view summit, DateTime time) {
  auto* there = Nearest(rows, time, [&](const ActivationRow& row) {
    return row.Who.Summit == summit && DistanceTo(row, time) < SecondsOfSilence;
  });
  if (there != nullptr) return there;
  return Nearest(rows, time, [&](const ActivationRow& row) {
    return row.Who.Summit.empty() && WasActiveWithin(row, SecondsOfSilence, time);
  });
}

ActivationRow* RowOnTheAir(const RowsOfStation& rows, DateTime time) {
  using Rule = std::function<bool(const ActivationRow&)>;
  const std::array<Rule, 4> rules = {
      [&](const ActivationRow& row) {
        return !row.Who.Summit.empty() && WasActiveWithin(row, StillOnTheAir, time);
      },
      [&](const ActivationRow& row) { return IsAnnouncedWithin(row, 0, time); },
      [&](const ActivationRow& row) { return WasActiveWithin(row, SecondsOfSilence, time); },
      [&](const ActivationRow& row) { return IsAnnouncedWithin(row, EarlyOrLate, time); }};
  for (const auto& rule : rules) {
    if (auto* row = Nearest(rows, time, rule)) return row;
  }
  return nullptr;
}

ActivationRow* RowOfAnnouncement(const RowsOfStation& rows, std::string_view summit,
                                 const Announcement& announcement) {
  const auto isHere = [&](const ActivationRow& row) { return row.Who.Summit == summit; };
  auto* near = Nearest(rows, announcement.Planned,
                       [&](const ActivationRow& row) { return isHere(row) && IsNear(row, announcement); });
  if (near != nullptr) return near;
  return Nearest(rows, announcement.Planned,
                 [&](const ActivationRow& row) { return isHere(row) && IsGivenUp(row); });
}

ActivationRow* RowToTakeOver(const RowsOfStation& rows, std::string_view summit, DateTime time) {
  const auto over = std::ranges::find_if(rows, [&](const ActivationRow* row) {
    return !HasMoved(*row) && IsOver(*row, time) && IsAnnouncedWithin(*row, 0, time) &&
           (summit.empty() || row->Who.Summit == summit);
  });
  return over == rows.end() ? nullptr : *over;
}

bool IsExpected(const RowsOfStation& rows, DateTime time) {
  return std::ranges::any_of(rows,
                             [&](const ActivationRow* row) { return DistanceTo(*row, time) <= SameDay; });
}

RowsOfStation RowsLeft(const RowsOfStation& rows, const ActivationRow& current, DateTime time) {
  RowsOfStation left;
  if (current.Who.Summit.empty()) return left;
  std::ranges::copy_if(rows, std::back_inserter(left), [&](const ActivationRow* row) {
    const auto last = LastActivity(row->Facts);
    return !HasMoved(*row) && row->Who.Summit != current.Who.Summit && last && *last <= time &&
           WasActiveWithin(*row, SecondsOfSilence, time);
  });
  return left;
}

}  // namespace brelwin
