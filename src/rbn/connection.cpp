#include "rbn/connection.h"

#include "radio/dates.h"

namespace brelwin {

namespace {

std::string TimeOfDay(DateTime time) {
  return DateTimeText(time).substr(11);
}

std::string ReceivingText(const StreamStatus& status) {
  const auto lines = std::to_string(status.Lines) + (status.Lines == 1 ? " line" : " lines");
  return "receiving from " + status.Peer + " since " + TimeOfDay(status.Since) +
         (status.Lines > 0 ? ", " + lines : "") +
         (status.LastLine ? ", the last at " + TimeOfDay(*status.LastLine) : "");
}

std::string NoConnectionText(const StreamStatus& status, std::optional<DateTime> nextAttempt) {
  return "no connection since " + TimeOfDay(status.Since) +
         (status.Failure.empty() ? "" : " (" + status.Failure + ")") +
         (nextAttempt ? ", next attempt at " + TimeOfDay(*nextAttempt) : "");
}

std::string StageText(const StreamStatus& status, std::optional<DateTime> nextAttempt) {
  switch (status.Stage) {
    case StreamStage::Off: return "off";
    case StreamStage::Connecting: return "connecting to " + status.Peer + " since " + TimeOfDay(status.Since);
    case StreamStage::AwaitingLogin:
      return "connected to " + status.Peer + ", waiting for the login since " + TimeOfDay(status.Since);
    case StreamStage::Receiving: return ReceivingText(status);
    case StreamStage::NoConnection: return NoConnectionText(status, nextAttempt);
  }
  return {};
}

}  // namespace

std::string StreamStatusText(const StreamStatus& status, std::optional<DateTime> nextAttempt,
                             std::string_view name) {
  return std::string(name) + ": " + StageText(status, nextAttempt);
}

RBNConnection::RBNConnection(Host& host, const Configuration& configuration, RBNControls controls,
                             RBNStream stream)
    : World(host),
      Config(configuration),
      Controls(controls),
      Stream(stream),
      Sockets(host.Sockets),
      Index(stream.FirstIndex),
      ConnectedAt(host.Time.Now()),
      LastArrival(ConnectedAt),
      LastRawRBNSpotTime(ConnectedAt) {
  Sockets.Load(Index);
}

void ForgetLogin(RBNConnection& connection) {
  connection.Connected = false;
  connection.CallsignSent = false;
  connection.PromptAnswered = false;
  connection.HeldBack = false;
  connection.ReceiveBuffer.clear();
  connection.ChecksWithoutLineEnd = 0;
  connection.Lines.DropRest();
}

void ShowNoConnection(RBNConnection& connection, std::string_view reason) {
  ForgetLogin(connection);
  connection.Controls.lblNoConnectionToRBN.Visible = true;
  connection.Status.Failure = reason;
  SetStage(connection, StreamStage::NoConnection);
}

void SetStage(RBNConnection& connection, StreamStage stage) {
  const auto now = connection.World.Time.LocalNow();
  if (stage == StreamStage::NoConnection && !connection.DownSince) connection.DownSince = now;
  if (stage == StreamStage::Receiving || stage == StreamStage::Off) connection.DownSince.reset();
  connection.Status.Stage = stage;
  connection.Status.Since = stage == StreamStage::NoConnection ? *connection.DownSince : now;
  connection.StatusChanged.Raise();
}

}  // namespace brelwin
