#include "qt/ports/quit_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

namespace brelwin {
namespace {

constexpr std::array Signals{SIGINT, SIGTERM};

// A signal handler reaches nothing but statics: this is the end of the pipe that it writes to.
std::atomic<int>& PipeOfTheHandler() {
  static std::atomic<int> pipe{-1};
  return pipe;
}

extern "C" void NoteSignal(int /*signal*/) {
  const int savedErrno = errno;
  const char anything = 0;
  [[maybe_unused]] const auto written = ::write(PipeOfTheHandler(), &anything, 1);
  errno = savedErrno;
}

bool IsIgnored(int signal) {
  struct sigaction current = {};
  return ::sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

void Handle(int signal) {
  struct sigaction action = {};
  action.sa_handler = NoteSignal;
  action.sa_flags = SA_RESTART;
  ::sigaction(signal, &action, nullptr);
}

void Drain(int readEnd) {
  std::array<char, 64> bytes{};
  while (::read(readEnd, bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> whenAsked) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = ends[0];
  writeEnd_ = ends[1];
  PipeOfTheHandler() = writeEnd_;
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [readEnd = readEnd_, ask = std::move(whenAsked)] {
                     Drain(readEnd);
                     ask();
                   });
  for (const int signal : Signals) Handle(signal);
  if (!IsIgnored(SIGHUP)) Handle(SIGHUP);  // nohup means that the terminal may go
}

QuitSignals::~QuitSignals() {
  if (!notifier_) return;
  notifier_.reset();
  for (const int signal : Signals) ::signal(signal, SIG_DFL);
  if (!IsIgnored(SIGHUP)) ::signal(SIGHUP, SIG_DFL);
  PipeOfTheHandler() = -1;
  ::close(readEnd_);
  ::close(writeEnd_);
}

}  // namespace brelwin
