#include "cycle/timers.h"

#include <chrono>
#include <utility>

namespace brelwin {
namespace {

constexpr auto BetweenBeats = std::chrono::seconds(10);

}  // namespace

CheckTimerDriver::CheckTimerDriver(const Clock& time, EventQueue& events, CheckTimer& timer,
                                   std::function<void()> onTick)
    : time_(time),
      events_(events),
      timer_(timer),
      onTick_(std::move(onTick)),
      enabled_(timer.Enabled.WhenChanged([this] { Restart(); })),
      interval_(timer.Interval.WhenChanged([this] { Restart(); })) {}

void CheckTimerDriver::Restart() {
  const Milliseconds interval(timer_.Interval.Get());
  due_ = time_.Now() + interval;
  pending_ = timer_.Enabled ? events_.CallAfter(interval, [this] { Tick(); }) : TimerHandle();
}

std::optional<Instant> CheckTimerDriver::Due() const {
  return timer_.Enabled ? std::optional(due_) : std::nullopt;
}

void CheckTimerDriver::Tick() {
  Restart();
  onTick_();
}

Heartbeat::Heartbeat(const Clock& time, EventQueue& events, StallWatch& stalls)
    : time_(time), events_(events), stalls_(stalls) {
  Beat();
}

void Heartbeat::Beat() {
  stalls_.Look(time_.Now());
  pending_ = events_.CallAfter(BetweenBeats, [this] { Beat(); });
}

}  // namespace brelwin
