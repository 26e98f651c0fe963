// The event log: what the program did, one line per call, for the user to read.
#pragma once

#include <string_view>

#include "platform/host.h"

namespace brelwin {

// Appends one line to the file: the local date and time, ": " and the message; an empty message gives a line
// holding one blank. A blank file name means "BrelwinEventLog.txt" in the program's folder. The file is
// opened and closed on every call. It never fails visibly: logging must not disturb the caller. Line ends and
// other control characters in the message become blanks, so that outside text cannot forge a line.
void LogEvent(Host& host, std::string_view fileName, std::string_view message);

// The same, into the default event log.
void LogEvent(Host& host, std::string_view message);

}  // namespace brelwin
