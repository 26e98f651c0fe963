#include "qt/ports/line_output.h"

#include <poll.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <algorithm>
#include <cerrno>
#include <climits>

namespace brelwin {
namespace {

constexpr int LongestFarewell = 1000;  // milliseconds

// A pipe that is ready takes at least this much without blocking.
constexpr std::size_t SafeBytes = _POSIX_PIPE_BUF;

bool IsReady(int fileDescriptor, const QDeadlineTimer& deadline) {
  pollfd question{fileDescriptor, POLLOUT, 0};
  return ::poll(&question, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

}  // namespace

LineOutput::LineOutput(int fileDescriptor, std::size_t mostWaiting)
    : fileDescriptor_(fileDescriptor),
      mostWaiting_(mostWaiting),
      whenWritable_(fileDescriptor, QSocketNotifier::Write) {
  whenWritable_.setEnabled(false);
  QObject::connect(&whenWritable_, &QSocketNotifier::activated, &whenWritable_, [this] { Flush(0); });
}

LineOutput::~LineOutput() {
  Flush(LongestFarewell);
}

void LineOutput::Write(std::string_view line) {
  waiting_.emplace_back(line).push_back('\n');
  waitingBytes_ += waiting_.back().size();
  Flush(0);
  DropOldest();
}

// Writes until nothing is left, or the other end takes no more in the time there is.
void LineOutput::Flush(int milliseconds) {
  const QDeadlineTimer deadline(milliseconds);
  while (TakeNextLine() && IsReady(fileDescriptor_, deadline) && (WriteSome() || !deadline.hasExpired())) {
  }
  whenWritable_.setEnabled(!begun_.empty());
}

// False when nothing is left to be written.
bool LineOutput::TakeNextLine() {
  if (!begun_.empty()) return true;
  if (dropped_ > 0) {
    begun_ = "(lines missing here, nobody read them in time: " + std::to_string(dropped_) + ")\n";
    dropped_ = 0;
    return true;
  }
  if (waiting_.empty()) return false;
  begun_ = std::move(waiting_.front());
  waiting_.pop_front();
  waitingBytes_ -= begun_.size();
  return true;
}

// False when the other end has to be waited for after all.
bool LineOutput::WriteSome() {
  const auto written = ::write(fileDescriptor_, begun_.data(), std::min(begun_.size(), SafeBytes));
  if (written < 0 && (errno == EAGAIN || errno == EINTR)) return false;
  begun_.erase(0, written < 0 ? begun_.size() : static_cast<std::size_t>(written));
  return true;
}

void LineOutput::DropOldest() {
  for (; waitingBytes_ > mostWaiting_; ++dropped_) {
    waitingBytes_ -= waiting_.front().size();
    waiting_.pop_front();
  }
}

}  // namespace brelwin
