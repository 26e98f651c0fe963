// Runs the check timer of the screen on the event queue.
#pragma once

#include <functional>
#include <optional>

#include "base/observable.h"
#include "controls/screen.h"
#include "platform/clock.h"
#include "platform/event_queue.h"

namespace brelwin {

// Calls `onTick` again and again, an Interval apart, while the timer is Enabled. Setting either starts the
// interval anew.
class CheckTimerDriver {
 public:
  CheckTimerDriver(const Clock& time, EventQueue& events, CheckTimer& timer, std::function<void()> onTick);

  // Starts the running interval anew, also when its length is the same.
  void Restart();

  // When the next tick comes; empty while the timer stands.
  std::optional<Instant> Due() const;

 private:
  void Tick();

  const Clock& time_;
  EventQueue& events_;
  CheckTimer& timer_;
  std::function<void()> onTick_;
  TimerHandle pending_;
  Instant due_;
  Watch enabled_;
  Watch interval_;
};

}  // namespace brelwin
