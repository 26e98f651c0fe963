// What the stream is doing, for the status line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"

namespace brelwin {

enum class StreamStage : std::uint8_t { Off, Connecting, AwaitingLogin, Receiving, NoConnection };

struct StreamStatus {
  StreamStage Stage = StreamStage::Off;
  DateTime Since;                    // local; of no connection, since the first failure after the last login
  std::string Peer;                  // host and port
  std::string Failure;               // why there is no connection, in words
  std::int64_t Lines = 0;            // received since the login, of every kind that says something
  std::optional<DateTime> LastLine;  // local
};

// The status of the stream of that name in words. `nextAttempt` is the local time at which the next
// connection will be tried.
std::string StreamStatusText(const StreamStatus& status, std::optional<DateTime> nextAttempt,
                             std::string_view name = "Reverse Beacon Network");

}  // namespace brelwin
