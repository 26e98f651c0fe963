#include "qt/ports/quit_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <utility>

namespace brelwin {
namespace {

constexpr std::array Signals{SIGINT, SIGTERM, SIGHUP};

sigset_t SetOfSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : Signals) sigaddset(&set, signal);
  return set;
}

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

// An ignored hang-up means that the terminal may go. Interrupts are ignored in whatever a script starts in
// the background.
bool IsForUs(int signal) {
  return signal != SIGHUP || !IsIgnored(SIGHUP);
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

void HoldQuitSignals() {
  const auto signals = SetOfSignals();
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

QuitSignals::QuitSignals(std::function<void()> whenAsked) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
    readEnd_ = ends[0];
    writeEnd_ = ends[1];
    Listen(std::move(whenAsked));
  }
  const auto signals = SetOfSignals();
  ::pthread_sigmask(SIG_UNBLOCK, &signals, &heldBefore_);
}

void QuitSignals::Listen(std::function<void()> whenAsked) {
  PipeOfTheHandler() = writeEnd_;
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [readEnd = readEnd_, ask = std::move(whenAsked)] {
                     Drain(readEnd);
                     ask();
                   });
  for (const int signal : Signals)
    if (IsForUs(signal)) Handle(signal);
}

QuitSignals::~QuitSignals() {
  ::pthread_sigmask(SIG_SETMASK, &heldBefore_, nullptr);
  if (!notifier_) return;
  notifier_.reset();
  for (const int signal : Signals)
    if (IsForUs(signal)) ::signal(signal, SIG_DFL);
  PipeOfTheHandler() = -1;
  ::close(readEnd_);
  ::close(writeEnd_);
}

}  // namespace brelwin
