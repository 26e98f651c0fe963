// The one way to wait: yield to the event queue until something is true, a deadline passes or the program
// quits. And the one way to work long.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/host.h"

namespace brelwin {

enum class WaitResult : std::uint8_t { Done, TimedOut, ShuttingDown };

// Looks at the predicate, then at `ShuttingDown`, then at the deadline, and yields between looks. A deadline
// that has passed already still gives the predicate its first look.
[[nodiscard]] WaitResult WaitUntil(Host& host, const std::function<bool()>& predicate, Instant deadline);

// For work of many small steps, so that the window lives on while it is done: lets the event queue have its
// turn every thousand steps.
class LongWork {
 public:
  explicit LongWork(Host& host) : host_(host) {}

  // To be asked before each step; false when the program is quitting and the rest is to be left.
  [[nodiscard]] bool GoesOn();

 private:
  Host& host_;
  int steps_ = 0;
};

}  // namespace brelwin
