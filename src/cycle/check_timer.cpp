#include "cycle/check_timer.h"

#include <utility>

namespace brelwin {

CheckTimerDriver::CheckTimerDriver(EventQueue& events, CheckTimer& timer, std::function<void()> onTick)
    : events_(events),
      timer_(timer),
      onTick_(std::move(onTick)),
      enabled_(timer.Enabled.WhenChanged([this] { Restart(); })),
      interval_(timer.Interval.WhenChanged([this] { Restart(); })) {}

void CheckTimerDriver::Restart() {
  pending_ = timer_.Enabled ? events_.CallAfter(Milliseconds(timer_.Interval.Get()), [this] { Tick(); })
                            : TimerHandle();
}

void CheckTimerDriver::Tick() {
  Restart();
  onTick_();
}

}  // namespace brelwin
