#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/system_information.h"

namespace brelwin {

std::optional<TerminalSize> SizeOfTerminal(int fileDescriptor) {
  const auto kind = EnvironmentVariable("TERM").value_or("dumb");
  if (kind.empty() || kind == "dumb" || ::isatty(fileDescriptor) == 0) return {};
  winsize size{};
  if (::ioctl(fileDescriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
    return TerminalSize{};
  return TerminalSize{size.ws_col, size.ws_row};
}

}  // namespace brelwin
