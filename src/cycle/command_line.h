// The command line: an optional start-up delay, and nothing else.
#pragma once

#include <string_view>

namespace brelwin {

// The start-up delay in seconds: "DELAY=" in any letter case and a number, or the bare number. 0 for an empty
// command line, a bare "DELAY=" and anything that is not a number.
float ReadStartupDelay(std::string_view commandLine);

}  // namespace brelwin
