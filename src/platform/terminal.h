// Whether a stream of the process is a terminal, and how large that is.
#pragma once

#include <cstddef>
#include <optional>

namespace brelwin {

struct TerminalSize {
  std::size_t Width = 80;   // characters
  std::size_t Height = 24;  // lines
};

// The size at present of the terminal that the file descriptor writes to, 80 by 24 when it does not say.
// Empty for files and pipes, and for a terminal that moves no cursor (TERM is "dumb" or not set).
std::optional<TerminalSize> SizeOfTerminal(int fileDescriptor);

}  // namespace brelwin
