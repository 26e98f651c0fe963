// What time it is: an instant for ages, waits and intervals, and the wall clock for texts.
#pragma once

#include <chrono>
#include <cstdint>

#include "base/date_time.h"

namespace brelwin {

// A clock that neither jumps when the wall clock is set nor stands still while the machine sleeps.
struct BootClock {
  using duration = std::chrono::milliseconds;
  using rep = duration::rep;
  using period = duration::period;
  using time_point = std::chrono::time_point<BootClock>;
  static constexpr bool is_steady = true;
};
using Instant = BootClock::time_point;
using Milliseconds = std::chrono::milliseconds;

// What the operating system says of its time zone; biases are minutes, UTC minus local time.
struct TimeZoneInformation {
  enum class State : std::uint8_t { Unknown = 0, Standard = 1, Daylight = 2 };
  State Now = State::Unknown;
  int Bias = 0;
  int StandardBias = 0;
  int DaylightBias = 0;
};

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  virtual Instant Now() const = 0;
  virtual DateTime LocalNow() const = 0;
  virtual TimeZoneInformation GetTimeZoneInformation() const = 0;
};

// Whole seconds and minutes that have passed from one instant to another, truncated toward zero.
std::int64_t SecondsBetween(Instant from, Instant to);
std::int64_t MinutesBetween(Instant from, Instant to);

}  // namespace brelwin
