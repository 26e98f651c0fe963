// What beats on the event queue: the check timer of the screen, and the look at the clock for stalls.
#pragma once

#include <functional>
#include <optional>

#include "base/observable.h"
#include "controls/screen.h"
#include "platform/activities.h"
#include "platform/clock.h"
#include "platform/event_queue.h"
#include "platform/stall_watch.h"

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

// How often a check comes, and when the next one does.
struct CheckPace {
  CheckTimerDriver TickDriver;
  int CheckInterval = 5000;  // milliseconds between checks, also while the countdown runs
};

// The delay of the command line before anything is asked of the internet.
struct StartupDelay {
  std::optional<ActivityMark> Running;  // ticks only count down
  float Seconds = 0;
  Instant Since;
};

// Has the watch for stalls look at the clock, whatever else the program does.
class Heartbeat {
 public:
  // Beats from the start, every ten seconds, for as long as it lives. All must outlive it.
  Heartbeat(const Clock& time, EventQueue& events, StallWatch& stalls);

 private:
  void Beat();

  const Clock& time_;
  EventQueue& events_;
  StallWatch& stalls_;
  TimerHandle pending_;
};

}  // namespace brelwin
