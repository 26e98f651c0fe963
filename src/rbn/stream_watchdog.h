// When a connection that looks alive is given up.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/clock.h"

namespace brelwin {

// Text comes, but for more than `mostMinutes` whole minutes no spot line was in it. Never when that is 0 or
// less.
bool StreamIsStale(Instant lastSpotLine, std::int32_t mostMinutes, Instant now);

// What is known of a connection that has come up.
struct ConnectionSigns {
  Instant ConnectedAt;
  Instant LastArrival;  // of any bytes; when none have come, the time of the connection
  bool LoggedIn = false;
};

enum class Silence : std::uint8_t { None, NothingCame, NoLogin };

// The peer may be gone without a word, or talk without ever letting the program in. It is given 15 minutes,
// or three times `mostMinutes` when that is longer, and for ever when that is 0 or less.
Silence SilenceOf(const ConnectionSigns& signs, std::int32_t mostMinutes, Instant now);

// The minutes that SilenceOf gives a connection.
std::int64_t PatienceInMinutes(std::int32_t mostMinutes);

}  // namespace brelwin
