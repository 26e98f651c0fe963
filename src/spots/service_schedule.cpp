#include "spots/service_schedule.h"

#include <algorithm>

namespace brelwin {
namespace {

using std::chrono::seconds;

constexpr seconds ShortestPause{60};
constexpr seconds LongestPause{600};
constexpr seconds LongestRefusal{24 * 3600};
constexpr seconds BetweenWholeLists{300};

// Doubles with each failure. The half of it is left to chance, so that many programs that lost the same
// service do not come back to it at the same moment.
Milliseconds PauseAfter(int failures, double random) {
  constexpr int MostDoublings = 4;
  const auto whole =
      Milliseconds(std::min(LongestPause, ShortestPause * (1 << std::min(failures, MostDoublings))));
  return whole / 2 +
         Milliseconds(static_cast<std::int64_t>(random * static_cast<double>((whole / 2).count())));
}

}  // namespace

bool ServiceSchedule::MayAsk(Instant now) const {
  return now >= std::max(notBefore_, refusedUntil_);
}

std::optional<Instant> ServiceSchedule::NextAsk(Instant now) const {
  return MayAsk(now) ? std::nullopt : std::optional(std::max(notBefore_, refusedUntil_));
}

bool ServiceSchedule::IsWholeListDue(Instant now) const {
  return !wholeListAt_ || now - *wholeListAt_ >= BetweenWholeLists;
}

void ServiceSchedule::NoteAsked(Instant now) {
  notBefore_ = now + ShortestPause;
}

void ServiceSchedule::NoteFailure(Instant now, std::optional<seconds> retryAfter) {
  ++failures_;
  notBefore_ = std::max(notBefore_, now + PauseAfter(failures_, random_()));
  if (retryAfter)
    refusedUntil_ = std::max(refusedUntil_, now + std::clamp(*retryAfter, seconds(0), LongestRefusal));
}

}  // namespace brelwin
