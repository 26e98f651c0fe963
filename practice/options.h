// The command line of the practice network.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "service.h"
#include "spotlite.h"
#include "telnet_server.h"

namespace practice {

inline constexpr std::string_view Usage =
    "usage: brelwin-practice [--port N] [--telnet-port N] [--seed N] [--speed X] [--ledger FILE]\n"
    "                        [--lines X] [--fault NAME] [--fault-after X] [--crowd N] [--page-troubles N]\n"
    "                        [--spotlite MIX] [--spotlite-wait X] [--spot-lag X]\n"
    "                        [--api SHAPES] [--api-outages N]\n"
    "  --port N       listen on this port of the loopback interface; 0, the default, takes a free one\n"
    "  --seed N       which script is played (default 1)\n"
    "  --speed X      play the script X times as fast, 0.001 to 10000 (default 1)\n"
    "  --telnet-port N  the same for the skimmers' stream\n"
    "  --lines X      lines a second of the stream, 0.01 to 100000 (default 5)\n"
    "  --fault NAME   trouble with the stream: cut, stall, reset, garbage, half or no-prompt\n"
    "  --fault-after X  seconds from a login until that trouble (default 20)\n"
    "  --crowd N      so many activators beside the usual ones\n"
    "  --page-troubles N  of a thousand feed and alert pages, how many come late, cut, empty, with status "
    "500\n"
    "                 or not at all\n"
    "  --spotlite MIX what posted spots are answered: honest (the default), accepted, wrong-password,\n"
    "                 unknown-association, bad-frequency, failed, without-echo, server-error, redirect, "
    "pieces,\n"
    "                 slow, cut or late; or several with their shares, such as accepted:8,cut:1,late:1\n"
    "  --spotlite-wait X  seconds that slow and late answers take (default 8)\n"
    "  --spot-lag X   seconds until an accepted spot is in the feeds (default 5)\n"
    "  --api SHAPES   serve spots and announcements as JSON too, below /api/: rows of the new shape, of the "
    "old\n"
    "                 one, or mixed, with odd rows among them; spots are corrected and taken back\n"
    "  --api-outages N  of a hundred half hours, in how many that service refuses or is gone for a while\n"
    "  --ledger FILE  write down everything received and served, a JSON object a line\n"
    "The first lines on the standard output are http=PORT and telnet=PORT.\n";

struct Options {
  int Port = 0;
  int TelnetPort = 0;
  StreamOptions Stream;
  SpotliteOptions Form;
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::size_t Crowd = 0;
  int PageTroubles = 0;
  ServiceOptions Json;
  std::string LedgerFile;
};

// Empty when something is not understood or out of its range.
std::optional<Options> ReadOptions(std::span<const std::string_view> arguments);

}  // namespace practice
