// The clocks and the time zone of this machine.
#pragma once

#include "platform/clock.h"

namespace brelwin {

// A zone that is changed while the program runs is followed.
class SystemClock final : public Clock {
 public:
  Instant Now() const override;
  DateTime LocalNow() const override;
  TimeZoneInformation GetTimeZoneInformation() const override;
};

}  // namespace brelwin
