#include "rbn/connection.h"

namespace brelwin {

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
