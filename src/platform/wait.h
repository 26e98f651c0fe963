// The one way to wait: yield to the event queue until something is true, a deadline passes or the program
// quits.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/host.h"

namespace brelwin {

enum class WaitResult : std::uint8_t { Done, TimedOut, ShuttingDown };

// Looks at the predicate, then at `ShuttingDown`, then at the deadline, and yields between looks. A deadline
// that has passed already still gives the predicate its first look.
[[nodiscard]] WaitResult WaitUntil(Host& host, const std::function<bool()>& predicate, Instant deadline);

}  // namespace brelwin
