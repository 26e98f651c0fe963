#include "platform/stall_watch.h"

namespace brelwin {
namespace {

constexpr auto LongestPause = std::chrono::minutes(2);

}  // namespace

void StallWatch::Look(Instant now) {
  if (lastLook_ && now - *lastLook_ > LongestPause) {
    latestEnd_ = now;
    latestInMinutes_ = MinutesBetween(*lastLook_, now);
  }
  lastLook_ = now;
}

bool StallWatch::HasStalledSince(Instant moment, Instant now) {
  Look(now);
  return latestEnd_ && *latestEnd_ > moment;
}

}  // namespace brelwin
