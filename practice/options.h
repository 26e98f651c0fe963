// The command line of the practice network.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace practice {

inline constexpr std::string_view Usage =
    "usage: brelwin-practice [--port N] [--seed N] [--speed X] [--ledger FILE]\n"
    "  --port N       listen on this port of the loopback interface; 0, the default, takes a free one\n"
    "  --seed N       which script is played (default 1)\n"
    "  --speed X      play the script X times as fast, 0.001 to 10000 (default 1)\n"
    "  --ledger FILE  write down everything received and served\n"
    "The first line on the standard output is http=PORT.\n";

struct Options {
  int Port = 0;
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::string LedgerFile;
};

// Empty when something is not understood or out of its range.
std::optional<Options> ReadOptions(std::span<const std::string_view> arguments);

}  // namespace practice
