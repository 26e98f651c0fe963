#include "platform/clock.h"

namespace brelwin {

std::int64_t SecondsBetween(Instant from, Instant to) {
  return std::chrono::duration_cast<std::chrono::seconds>(to - from).count();
}

std::int64_t MinutesBetween(Instant from, Instant to) {
  return std::chrono::duration_cast<std::chrono::minutes>(to - from).count();
}

}  // namespace brelwin
