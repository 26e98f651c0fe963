// The spot logs: spots appended to a file as lines, in one of several formats.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// The formats of the writer; any other number is a text log.
inline constexpr std::int16_t TextLogFormat = 0;
inline constexpr std::int16_t CommaLogFormat = 1;
inline constexpr std::int16_t TabLogFormat = 2;
inline constexpr std::int16_t BarLogFormat = 3;
inline constexpr std::int16_t RawLogFormat = 99;

// Whether a text log that does not exist yet begins with the captions of the list.
enum class LogHeader : std::uint8_t { None, WhenCreated };

// Appends the spots to the file in one write, each with its preceding and following log lines, creating the
// file when there is none. A text or raw line begins with the local time of the writing. Does nothing without
// spots or with a blank path, and leaves test spots out; a file that cannot be written gives one event-log
// line.
void WriteSpotsToLogFile(Host& host, const SpotCollection& spots, std::string_view path, std::int16_t format,
                         LogHeader header = LogHeader::None);

}  // namespace brelwin
