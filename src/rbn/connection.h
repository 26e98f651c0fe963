// The one connection to the Reverse Beacon Network, in what stage it is, and its sockets by index: one that
// hangs is left for a fresh one.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"
#include "base/observable.h"
#include "controls/screen.h"
#include "platform/host.h"
#include "platform/socket_control.h"
#include "rbn/line_buffer.h"
#include "settings/configuration.h"

namespace brelwin {

// What the stream is doing, for the status line.
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

class WinsockArray {
 public:
  explicit WinsockArray(SocketControls& controls) : controls_(controls) {}

  // A new, closed socket under the index.
  SocketControl& Load(std::int32_t index) { return *(sockets_[index] = controls_.Create()); }

  // Ends the socket and its connection.
  void Unload(std::int32_t index) { sockets_.erase(index); }

  // The loaded socket; std::out_of_range when there is none.
  SocketControl& operator[](std::int32_t index) const { return *sockets_.at(index); }

 private:
  SocketControls& controls_;
  std::map<std::int32_t, std::unique_ptr<SocketControl>> sockets_;
};

// What the connection sees of the screen.
struct RBNControls {
  explicit RBNControls(Screen& screen) : RBNControls(screen, screen.Spots.lblNoConnectionToRBN) {}
  RBNControls(Screen& screen, Label& noConnection)
      : tmrCheckSpots(screen.tmrCheckSpots),
        cmdReloadSpotList(screen.Spots.cmdReloadSpotList),
        lblNoConnectionToRBN(noConnection),
        chkReverseBeaconSpotsEnabled(screen.RBN.chkReverseBeaconSpotsEnabled),
        txtRBNCallsign(screen.RBN.txtRBNCallsign),
        txtRBNMaxMinutesSinceLastRawSpotReceived(screen.RBN.txtRBNMaxMinutesSinceLastRawSpotReceived) {}

  CheckTimer& tmrCheckSpots;
  Button& cmdReloadSpotList;
  Label& lblNoConnectionToRBN;
  CheckBox& chkReverseBeaconSpotsEnabled;
  TextBox& txtRBNCallsign;
  TextBox& txtRBNMaxMinutesSinceLastRawSpotReceived;
};

// Which stream of the server a connection is for.
struct RBNStream {
  std::int32_t Configuration::*Port = &Configuration::RBNPort;
  std::int32_t FirstIndex = 0;  // of its sockets, by which log lines tell the streams apart
};
inline constexpr RBNStream SecondStream{&Configuration::RBNPort2, 1000};

// Disconnected, then connecting, connected, logged in; Close or Error lead back from anywhere. The events of
// its sockets act on it, so it stays where it is.
struct RBNConnection {
  RBNConnection(Host& host, const Configuration& configuration, RBNControls controls, RBNStream stream = {});
  RBNConnection(const RBNConnection&) = delete;
  RBNConnection& operator=(const RBNConnection&) = delete;
  ~RBNConnection() = default;

  Host& World;
  const Configuration& Config;
  RBNControls Controls;
  const RBNStream Stream;

  WinsockArray Sockets;
  std::int32_t Index;  // of the socket in use
  Activities Going;    // on this stream: another attempt on it is none of the other stream's business
  bool Connected = false;
  bool CallsignSent = false;       // completely: the login is done
  bool PromptAnswered = false;     // the callsign is on its way, or was sent
  std::string RBNCallsign;         // what the login sends
  std::string ReceiveBuffer;       // what came before the callsign was sent, in search of the prompt
  LineBuffer Lines;                // what came after it
  bool HeldBack = false;           // the socket is not read, so that the sender waits: the lines are full
  bool ArrivedSinceCheck = false;  // any bytes after the login
  int ChecksWithoutLineEnd = 0;    // in a row, of those that found bytes but no whole line
  Instant ConnectedAt;
  Instant HeardSince;          // the connection of the oldest line that waits was made
  Instant LastArrival;         // of any bytes
  Instant LastRawRBNSpotTime;  // when a spot line was last read, or the login was completed

  std::optional<DateTime> DownSince;  // local; the first failure after the last login, or since switched on
  StreamStatus Status;
  Signal StatusChanged;  // raised when the stage changes, not for every line

  // Given the whole lines that have come, when they have come, each once. They wait for the check all the
  // same.
  std::function<void(std::string_view lines)> Listener;

  SocketControl& Socket() { return Sockets[Index]; }

  // The configured port; of the second stream below 1 when there is to be none.
  std::int32_t Port() const { return Config.*Stream.Port; }
  bool IsConfigured() const { return Stream.FirstIndex == 0 || Port() >= 1; }
};

// Forgets the login and the line that was being received, whose rest will not come.
void ForgetLogin(RBNConnection& connection);

// The same, and says that there is no connection: on the screen and, with the reason, in the status.
void ShowNoConnection(RBNConnection& connection, std::string_view reason);

void SetStage(RBNConnection& connection, StreamStage stage);

}  // namespace brelwin
