#include "rbn/open_connection.h"

#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "core/trap.h"
#include "platform/wait.h"
#include "rbn/socket_events.h"
#include "settings/configuration.h"

namespace brelwin {
namespace {

constexpr std::int32_t DefaultPort = 7000;
constexpr std::int32_t HighestPort = 65535;
constexpr std::int32_t DefaultTimeoutInSeconds = 5;
constexpr int NeverRead = -9999;

// One call of OpenRBNConnection, as its log lines show it.
struct Attempt {
  std::string Host;
  std::int32_t Port;
  int StateBefore = NeverRead;
  int StateAfter = NeverRead;
};

int StateNumber(RBNConnection& connection) {
  return static_cast<int>(connection.Socket().State());
}

void Log(RBNConnection& connection, std::string_view message) {
  LogEvent(connection.World, "OpenRBNConnection - " + std::string(message));
}

std::string ElementName(std::int32_t index) {
  return "WinsockArray(" + std::to_string(index) + ")";
}

// The first element is always there.
void ReplaceHungSocket(RBNConnection& connection) {
  const auto old = connection.Index++;
  Log(connection, ElementName(old) +
                      " is in hung State=8, loading new control index=" + std::to_string(connection.Index));
  connection.Sockets.Load(connection.Index);
  Log(connection, ElementName(connection.Index) + " loaded successfully");
  if (old == connection.Stream.FirstIndex) return;
  connection.Sockets.Unload(old);
  Log(connection, ElementName(old) + " unloaded successfully");
}

void PrepareSocket(RBNConnection& connection, Attempt& attempt) {
  const auto state = connection.Socket().State();
  attempt.StateBefore = static_cast<int>(state);
  if (state == SocketState::Closing) {
    ReplaceHungSocket(connection);
  } else if (state != SocketState::Closed) {
    connection.Socket().Close();
  }
  ListenToSocket(connection);
  ForgetLogin(connection);
}

void WaitForConnection(RBNConnection& connection) {
  const auto isDecided = [&connection] { return connection.Socket().State() != SocketState::Connecting; };
  const auto timeout = connection.Config.RBNConnectionTimeout;
  const auto seconds = std::chrono::seconds(timeout < 1 ? DefaultTimeoutInSeconds : timeout);
  const auto result = WaitUntil(connection.World, isDecided, connection.World.Time.Now() + seconds);
  if (connection.Socket().State() == SocketState::Connected) connection.Connected = true;
  if (result == WaitResult::TimedOut)
    connection.Status.Failure = "no answer within " + std::to_string(seconds.count()) + " seconds";
}

void LogOutcome(RBNConnection& connection, const Attempt& attempt) {
  const bool isUp = connection.Socket().State() == SocketState::Connected;
  LogEvent(connection.World, std::string("OpenRBNConnection ") + (isUp ? "Successful" : "NOT Successful") +
                                 ", Host=" + attempt.Host + " Port=" + std::to_string(attempt.Port) + " " +
                                 ElementName(connection.Index) +
                                 " StateAfterConnect=" + std::to_string(StateNumber(connection)));
}

void TryToConnect(RBNConnection& connection, Attempt& attempt) {
  connection.Status.Peer = attempt.Host + ":" + std::to_string(attempt.Port);
  connection.Status.Failure.clear();
  if (attempt.Port > HighestPort) throw std::out_of_range("Port out of range");
  PrepareSocket(connection, attempt);
  SetStage(connection, StreamStage::Connecting);
  connection.Socket().Connect(attempt.Host, attempt.Port);
  attempt.StateAfter = StateNumber(connection);
  connection.Controls.lblNoConnectionToRBN.Visible = false;
  WaitForConnection(connection);
  LogOutcome(connection, attempt);
}

bool TryWithTrap(RBNConnection& connection, Attempt attempt, std::string& errorText) {
  const auto body = [&] {
    TryToConnect(connection, attempt);
    return true;
  };
  return TrapErrors(body, false, [&](const RuntimeError& error) {
    errorText = error.Description;
    connection.Status.Failure = error.Description;
    LogEvent(connection.World, "OpenRBNConnection Error, Number=" + std::to_string(error.Number) +
                                   " Error=" + error.Description +
                                   " (StateBeforeTryConnect=" + std::to_string(attempt.StateBefore) +
                                   ") StateAfterTryConnect=" + std::to_string(attempt.StateAfter));
  });
}

// The user may have switched the stream off while the attempt was waited for.
void ShowFailedAttempt(RBNConnection& connection) {
  connection.Controls.cmdReloadSpotList.Enabled = true;
  if (!connection.Controls.chkReverseBeaconSpotsEnabled.Value) return;
  connection.Controls.lblNoConnectionToRBN.Visible = true;
  SetStage(connection, StreamStage::NoConnection);
}

}  // namespace

bool OpenRBNConnection(RBNConnection& connection, std::string_view host, std::int32_t port,
                       std::string& errorText) {
  errorText.clear();
  if (!connection.Going.LetStart(Work::Open)) return true;
  const ActivityMark mark(connection.Going, Activity::OpenInProgress);
  auto& timer = connection.Controls.tmrCheckSpots;
  connection.Controls.cmdReloadSpotList.Enabled = false;
  const bool timerWasEnabled = timer.Enabled;
  timer.Enabled = false;
  const auto name = Trim(host);
  const bool done = TryWithTrap(
      connection, {std::string(name.empty() ? RBNServer : name), port < 1 ? DefaultPort : port}, errorText);
  if (!connection.Connected) ShowFailedAttempt(connection);
  if (timerWasEnabled && !connection.World.ShuttingDown) timer.Enabled = true;
  return done;
}

bool CloseRBNConnection(RBNConnection& connection, std::string& errorText) {
  errorText.clear();
  const auto body = [&] {
    LogEvent(connection.World, "CloseRBNConnection begin");
    connection.Socket().Close();
    LogEvent(connection.World, "CloseRBNConnection successful");
    ForgetLogin(connection);
    connection.Lines.Clear();
    SetStage(connection, StreamStage::Off);
    return true;
  };
  return TrapErrors(body, false, [&](const RuntimeError& error) {
    errorText = error.Description;
    LogEvent(connection.World, "CloseRBNConnection Error, Number=" + std::to_string(error.Number) +
                                   " Error=" + error.Description);
  });
}

}  // namespace brelwin
