// The system's requests to end the program (an interrupt from the terminal, a shutdown) as an event.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace brelwin {

// Calls the function from the event queue for every such signal. One object per program.
class QuitSignals {
 public:
  explicit QuitSignals(std::function<void()> whenAsked);
  ~QuitSignals();
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;

 private:
  int readEnd_ = -1;
  int writeEnd_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace brelwin
