// Lines for a terminal, pipe or file that may be slow, stopped or gone. Whoever writes is never held up: a
// paused terminal must not stop the monitor behind it.
#pragma once

#include <QSocketNotifier>
#include <string>
#include <string_view>

namespace brelwin {

class LineOutput {
 public:
  explicit LineOutput(int fileDescriptor);

  // Writes the line and a line feed. What the other end does not take yet is kept and written when it does;
  // beyond a mebibyte the oldest kept lines are dropped. Lines for an end that is gone are dropped.
  void Write(std::string_view line);

 private:
  void Flush();
  bool WriteSome();
  void DropOldest();

  const int fileDescriptor_;
  std::string pending_;
  QSocketNotifier whenWritable_;
};

}  // namespace brelwin
