// Has the watch for stalls look at the clock, whatever else the program does.
#pragma once

#include "platform/event_queue.h"
#include "platform/stall_watch.h"

namespace brelwin {

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
