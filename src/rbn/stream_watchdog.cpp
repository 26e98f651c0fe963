#include "rbn/stream_watchdog.h"

#include <algorithm>
#include <cstdlib>

namespace brelwin {

bool StreamIsStale(Instant lastSpotLine, std::int32_t mostMinutes, Instant now) {
  return mostMinutes > 0 && std::abs(MinutesBetween(lastSpotLine, now)) > mostMinutes;
}

std::int64_t PatienceInMinutes(std::int32_t mostMinutes) {
  constexpr std::int64_t Shortest = 15;
  return std::max(Shortest, std::int64_t{3} * mostMinutes);
}

Silence SilenceOf(const ConnectionSigns& signs, std::int32_t mostMinutes, Instant now) {
  if (mostMinutes <= 0) return Silence::None;
  const auto patience = PatienceInMinutes(mostMinutes);
  if (MinutesBetween(signs.LastArrival, now) >= patience) return Silence::NothingCame;
  const bool waitsForLogin = !signs.LoggedIn && MinutesBetween(signs.ConnectedAt, now) >= patience;
  return waitsForLogin ? Silence::NoLogin : Silence::None;
}

}  // namespace brelwin
