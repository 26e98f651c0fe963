#include "platform/wait.h"

#include <algorithm>

namespace brelwin {
namespace {

// What is waited for usually comes through the queue and ends the sleep; this bounds what does not.
constexpr Milliseconds LongestSleep{50};

constexpr int StepsBetweenYields = 1000;

}  // namespace

WaitResult WaitUntil(Host& host, const std::function<bool()>& predicate, Instant deadline) {
  while (true) {
    if (predicate()) return WaitResult::Done;
    if (host.ShuttingDown) return WaitResult::ShuttingDown;
    const auto rest = deadline - host.Time.Now();
    if (rest <= Milliseconds::zero()) return WaitResult::TimedOut;
    host.Events.WaitForEvents(std::min<Milliseconds>(rest, LongestSleep));
  }
}

bool LongWork::GoesOn() {
  if (++steps_ % StepsBetweenYields == 0) host_.Events.DoEvents();
  return !host_.ShuttingDown;
}

}  // namespace brelwin
