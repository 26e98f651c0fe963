#include "board/activation_facts.h"

#include <algorithm>
#include <array>

#include "alerts/sota_alert.h"

namespace brelwin {
namespace {

void Widen(std::optional<TimeSpan>& span, DateTime begin, DateTime end) {
  if (!span) span = TimeSpan{begin, end};
  span->Begin = std::min(span->Begin, begin);
  span->End = std::max(span->End, end);
}

void WidenByAnnouncements(std::optional<TimeSpan>& span, const ActivationFacts& facts, bool standing) {
  for (const auto& announcement : facts.Announcements) {
    if (announcement.Stands() == standing) Widen(span, announcement.Begin, announcement.End);
  }
}

// A window that is over is of less interest than one to come, and that than one that holds now.
int Rank(const Announcement& announcement, DateTime now) {
  if (announcement.End < now) return 0;
  return announcement.Begin <= now ? 2 : 1;
}

// Among equals the next one to come is the first, of those that are over the last.
bool MattersMore(const Announcement& one, const Announcement& other, DateTime now) {
  const auto rank = Rank(one, now);
  const auto otherRank = Rank(other, now);
  if (rank != otherRank) return rank > otherRank;
  return rank == 0 && one.End >= other.End;
}

bool OptsOut(const Announcement& announcement) {
  return announcement.Withdrawn == Withdrawal::OptedOut;
}

}  // namespace

std::optional<DateTime> LastReported(const ActivationFacts& facts) {
  if (facts.Reports.empty()) return {};
  return facts.Reports.back().When;
}

std::optional<DateTime> LastActivity(const ActivationFacts& facts) {
  auto last = LastReported(facts);
  if (facts.Heard && (!last || *last < facts.Heard->Last)) last = facts.Heard->Last;
  return last;
}

std::optional<TimeSpan> SpanOf(const ActivationFacts& facts) {
  std::optional<TimeSpan> span;
  WidenByAnnouncements(span, facts, true);
  if (facts.Heard) Widen(span, facts.Heard->First, facts.Heard->Last);
  if (!facts.Reports.empty()) Widen(span, facts.Reports.front().When, facts.Reports.back().When);
  if (!span) WidenByAnnouncements(span, facts, false);
  return span;
}

const Announcement* CurrentAnnouncement(const ActivationFacts& facts, DateTime now) {
  const Announcement* current = nullptr;
  for (const auto& announcement : facts.Announcements) {
    if (!announcement.Stands()) continue;
    if (current == nullptr || MattersMore(announcement, *current, now)) current = &announcement;
  }
  return current;
}

std::int64_t SecondsOutside(const TimeSpan& span, DateTime time) {
  return std::max<std::int64_t>({0, span.Begin.Seconds - time.Seconds, time.Seconds - span.End.Seconds});
}

bool HasOptedOut(const ActivationFacts& facts) {
  const auto& announced = facts.Announcements;
  const bool noneStands = std::ranges::none_of(announced, &Announcement::Stands);
  if (noneStands && std::ranges::any_of(announced, OptsOut)) return true;
  return std::ranges::any_of(facts.Reports, [](const Report& report) {
    return report.IsSelfSpot && HoldsOptOutWord(report.Comment);
  });
}

}  // namespace brelwin
