// Lines for a terminal, pipe or file that may be slow, stopped or gone. Whoever writes is never held up: a
// paused terminal must not stop the monitor behind it.
#pragma once

#include <QSocketNotifier>
#include <deque>
#include <string>
#include <string_view>

namespace brelwin {

class LineOutput {
 public:
  // `mostWaiting` is how many bytes are kept for an end that does not take them yet.
  explicit LineOutput(int fileDescriptor, std::size_t mostWaiting = std::size_t{64} * 1024 * 1024);

  // Gives what is still waiting a second to be taken.
  ~LineOutput();
  LineOutput(const LineOutput&) = delete;
  LineOutput& operator=(const LineOutput&) = delete;

  // Writes the line and a line feed. What the other end does not take yet waits and is written when it does;
  // of too much the oldest lines are dropped, whole, and a line in their place says how many they were. Lines
  // for an end that is gone are dropped.
  void Write(std::string_view line);

 private:
  void Flush(int milliseconds);
  bool TakeNextLine();
  bool WriteSome();
  void DropOldest();

  const int fileDescriptor_;
  const std::size_t mostWaiting_;
  std::string begun_;  // what is left of the line being written
  std::deque<std::string> waiting_;
  std::size_t waitingBytes_ = 0;
  std::size_t dropped_ = 0;  // lines older than the waiting ones
  QSocketNotifier whenWritable_;
};

}  // namespace brelwin
