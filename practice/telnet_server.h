// The telnet side of the practice network: a login by callsign, then the skimmers' stream, with faults on
// demand.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "feed.h"
#include "ledger.h"

namespace practice {

enum class Fault : std::uint8_t {
  None,
  Cut,      // the connection is closed in the middle of a line
  Stall,    // nothing more is sent, but the connection stays
  Reset,    // the connection is reset
  Garbage,  // bytes that are no text
  Half,     // every line comes in two parts
  NoPrompt  // the login is never asked for
};

// The fault of this name, in small letters with a dash; empty for another name.
std::optional<Fault> FaultOfName(std::string_view name);

struct StreamOptions {
  double LinesPerSecond = 5;
  Fault Trouble = Fault::None;
  double SecondsUntilTrouble = 20;  // from the login on
};

class TelnetServer {
 public:
  // Everything must outlive the server. The feed is shared with others under the mutex that SharedFeed holds.
  TelnetServer(SharedFeed& feed, Ledger& ledger, std::uint64_t seed, StreamOptions options);
  ~TelnetServer();
  TelnetServer(const TelnetServer&) = delete;
  TelnetServer& operator=(const TelnetServer&) = delete;

  // Takes the port, or a free one for 0, and begins to serve. Returns the port, or 0 when it is not to be
  // had.
  int Start(int port);

  // Ends every connection and returns when all is quiet.
  void Stop();

 private:
  struct Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace practice
