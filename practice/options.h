// The command line of the practice network.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "telnet_server.h"

namespace practice {

inline constexpr std::string_view Usage =
    "usage: brelwin-practice [--port N] [--telnet-port N] [--seed N] [--speed X] [--ledger FILE]\n"
    "                        [--lines X] [--fault NAME] [--fault-after X]\n"
    "  --port N       listen on this port of the loopback interface; 0, the default, takes a free one\n"
    "  --seed N       which script is played (default 1)\n"
    "  --speed X      play the script X times as fast, 0.001 to 10000 (default 1)\n"
    "  --telnet-port N  the same for the skimmers' stream\n"
    "  --lines X      lines a second of the stream, 0.01 to 100000 (default 5)\n"
    "  --fault NAME   trouble with the stream: cut, stall, reset, garbage, half or no-prompt\n"
    "  --fault-after X  seconds from a login until that trouble (default 20)\n"
    "  --ledger FILE  write down everything received and served\n"
    "The first lines on the standard output are http=PORT and telnet=PORT.\n";

struct Options {
  int Port = 0;
  int TelnetPort = 0;
  StreamOptions Stream;
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::string LedgerFile;
};

// Empty when something is not understood or out of its range.
std::optional<Options> ReadOptions(std::span<const std::string_view> arguments);

}  // namespace practice
