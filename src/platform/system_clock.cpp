#include "platform/system_clock.h"

#include <ctime>
#include <optional>

namespace brelwin {
namespace {

constexpr int ProbesOfAYear = 24;
constexpr std::time_t TimeBetweenProbes = 366 / 2 * 86400 / (ProbesOfAYear / 2);

// Asks for the zone anew each time: localtime_r alone would keep that of the start.
std::tm LocalTime(std::time_t time) {
  std::tm parts{};
  ::tzset();
  ::localtime_r(&time, &parts);
  return parts;
}

int BiasOf(const std::tm& parts) {
  return static_cast<int>(-parts.tm_gmtoff / 60);
}

// The bias of the half of the year that is not the present one, when the zone has two.
std::optional<int> BiasOfOtherHalf(std::time_t now, bool isDaylight) {
  for (int i = 1; i <= ProbesOfAYear; ++i) {
    const auto parts = LocalTime(now + i * TimeBetweenProbes);
    if ((parts.tm_isdst > 0) != isDaylight) return BiasOf(parts);
  }
  return {};
}

}  // namespace

Instant SystemClock::Now() const {
  std::timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  return Instant(std::chrono::duration_cast<Milliseconds>(std::chrono::seconds(time.tv_sec) +
                                                          std::chrono::nanoseconds(time.tv_nsec)));
}

DateTime SystemClock::LocalNow() const {
  const auto now = std::time(nullptr);
  return {static_cast<std::int64_t>(now) + LocalTime(now).tm_gmtoff};
}

TimeZoneInformation SystemClock::GetTimeZoneInformation() const {
  const auto now = std::time(nullptr);
  const auto parts = LocalTime(now);
  const bool isDaylight = parts.tm_isdst > 0;
  const int bias = BiasOf(parts);
  const auto other = BiasOfOtherHalf(now, isDaylight);
  const int standard = isDaylight ? other.value_or(bias) : bias;
  const int daylight = isDaylight ? bias : other.value_or(bias);
  using State = TimeZoneInformation::State;
  const auto state = isDaylight ? State::Daylight : other ? State::Standard : State::Unknown;
  return {state, standard, 0, daylight - standard};
}

}  // namespace brelwin
