#include "platform/wait.h"

#include <algorithm>

namespace brelwin {
namespace {

// What is waited for usually comes through the queue and ends the sleep; this bounds what does not.
constexpr Milliseconds LongestSleep{50};

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

}  // namespace brelwin
