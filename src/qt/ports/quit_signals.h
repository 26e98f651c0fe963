// The system's requests to end the program (an interrupt from the terminal, a shutdown) as an event.
#pragma once

#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <memory>

namespace brelwin {

// Holds such signals back until somebody listens to them. To be called first of all, before there are other
// threads: a signal while the program is being built up would end it without order.
void HoldQuitSignals();

// Calls the function from the event queue for every such signal, also for those held back so far. At its end
// they are held back again, if they were before. One object at a time.
class QuitSignals {
 public:
  explicit QuitSignals(std::function<void()> whenAsked);
  ~QuitSignals();
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;

 private:
  void Listen(std::function<void()> whenAsked);

  sigset_t heldBefore_{};
  int readEnd_ = -1;
  int writeEnd_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace brelwin
