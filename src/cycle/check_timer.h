// Runs the check timer of the screen on the event queue.
#pragma once

#include <functional>

#include "base/observable.h"
#include "controls/form.h"
#include "platform/event_queue.h"

namespace brelwin {

// Calls `onTick` again and again, an Interval apart, while the timer is Enabled. Setting either starts the
// interval anew.
class CheckTimerDriver {
 public:
  CheckTimerDriver(EventQueue& events, CheckTimer& timer, std::function<void()> onTick);

  // Starts the running interval anew, also when its length is the same.
  void Restart();

 private:
  void Tick();

  EventQueue& events_;
  CheckTimer& timer_;
  std::function<void()> onTick_;
  TimerHandle pending_;
  Watch enabled_;
  Watch interval_;
};

}  // namespace brelwin
