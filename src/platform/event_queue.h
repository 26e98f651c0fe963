// The one event queue of the program's one thread: user input, timers and network events run from here.
#pragma once

#include <functional>
#include <memory>

#include "platform/clock.h"

namespace brelwin {

// Keeps a timer running; its end cancels it, also while the timer's own function runs.
class [[nodiscard]] TimerHandle {
 public:
  TimerHandle() = default;
  explicit TimerHandle(std::shared_ptr<void> timer) : timer_(std::move(timer)) {}

 private:
  std::shared_ptr<void> timer_;
};

class EventQueue {
 public:
  EventQueue() = default;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;
  virtual ~EventQueue() = default;

  // Handles what is waiting and returns at once when nothing is.
  virtual void DoEvents() = 0;

  // Sleeps until something happens, but not longer than `atMost`, and handles it. A wait uses no processor.
  virtual void WaitForEvents(Milliseconds atMost) = 0;

  // Calls the function once, `delay` from now, from the event queue.
  virtual TimerHandle CallAfter(Milliseconds delay, std::function<void()> function) = 0;

  // Ends the program once control returns to the outermost loop. What is still waiting is not handled.
  virtual void Quit() = 0;
};

}  // namespace brelwin
