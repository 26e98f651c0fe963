#include "qt/ports/line_output.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace brelwin {
namespace {

constexpr std::size_t MostPending = 1024 * 1024;

// A pipe that is ready takes at least this much without blocking.
constexpr std::size_t SafeBytes = _POSIX_PIPE_BUF;

bool IsReady(int fileDescriptor) {
  pollfd question{fileDescriptor, POLLOUT, 0};
  return ::poll(&question, 1, 0) > 0;
}

}  // namespace

LineOutput::LineOutput(int fileDescriptor)
    : fileDescriptor_(fileDescriptor), whenWritable_(fileDescriptor, QSocketNotifier::Write) {
  whenWritable_.setEnabled(false);
  QObject::connect(&whenWritable_, &QSocketNotifier::activated, &whenWritable_, [this] { Flush(); });
}

void LineOutput::Write(std::string_view line) {
  pending_.append(line).push_back('\n');
  Flush();
  if (pending_.size() > MostPending) DropOldest();
}

void LineOutput::Flush() {
  while (!pending_.empty() && IsReady(fileDescriptor_) && WriteSome()) {
  }
  whenWritable_.setEnabled(!pending_.empty());
}

// False when the other end has to be waited for.
bool LineOutput::WriteSome() {
  const auto written = ::write(fileDescriptor_, pending_.data(), std::min(pending_.size(), SafeBytes));
  if (written >= 0) {
    pending_.erase(0, static_cast<std::size_t>(written));
    return true;
  }
  if (errno == EAGAIN || errno == EINTR) return false;
  pending_.clear();
  return true;
}

void LineOutput::DropOldest() {
  const auto end = pending_.find('\n', pending_.size() - MostPending);
  pending_.erase(0, end + 1);
}

}  // namespace brelwin
