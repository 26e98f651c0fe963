// The event queue of both executables: Qt's own loop, for programs with and without a display.
#pragma once

#include "platform/event_queue.h"

namespace brelwin {

// To be made after the application object.
class QtEventQueue final : public EventQueue {
 public:
  void DoEvents() override;
  void WaitForEvents(Milliseconds atMost) override;
  TimerHandle CallAfter(Milliseconds delay, std::function<void()> function) override;
  void Quit() override;

  // Runs the outermost loop until Quit; over at once when Quit has been called already.
  void Run();

 private:
  bool quit_ = false;
};

}  // namespace brelwin
