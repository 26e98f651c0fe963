#include "rbn/stream.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/text.h"
#include "core/event_log.h"
#include "core/status_codes.h"
#include "radio/numbers.h"
#include "rbn/open_connection.h"
#include "rbn/socket_events.h"
#include "rbn/spot_line.h"
#include "rbn/spot_parser.h"

namespace brelwin {

bool StreamIsStale(Instant lastSpotLine, std::int32_t mostMinutes, Instant now) {
  return mostMinutes > 0 && std::abs(MinutesBetween(lastSpotLine, now)) > mostMinutes;
}

std::int64_t PatienceInMinutes(std::int32_t mostMinutes) {
  constexpr std::int64_t Shortest = 15;
  return std::max(Shortest, std::int64_t{3} * mostMinutes);
}

Silence SilenceOf(const ConnectionSigns& signs, std::int32_t mostMinutes, Instant now) {
  if (mostMinutes <= 0) return Silence::None;
  const auto patience = PatienceInMinutes(mostMinutes);
  if (MinutesBetween(signs.LastArrival, now) >= patience) return Silence::NothingCame;
  const bool waitsForLogin = !signs.LoggedIn && MinutesBetween(signs.ConnectedAt, now) >= patience;
  return waitsForLogin ? Silence::NoLogin : Silence::None;
}

namespace {

std::int32_t MostMinutesWithoutSpots(const RBNConnection& connection) {
  return WholeNumber(connection.Controls.txtRBNMaxMinutesSinceLastRawSpotReceived.Text.Get());
}

std::string Describe(Silence silence, std::int32_t mostMinutes) {
  const auto time = " for " + std::to_string(PatienceInMinutes(mostMinutes)) + " minutes";
  return (silence == Silence::NoLogin ? "no login" : "nothing received") + time;
}

void Reconnect(RBNConnection& connection) {
  if (connection.World.ShuttingDown) return;
  std::string errorText;
  CloseRBNConnection(connection, errorText);
  OpenRBNConnection(connection, connection.Config.RBNHost, connection.Port(), errorText);
}

void WatchStream(RBNConnection& connection, std::int32_t spotLines) {
  const auto now = connection.World.Time.Now();
  if (spotLines > 0) {
    connection.LastRawRBNSpotTime = now;
  } else if (connection.CallsignSent &&
             StreamIsStale(connection.LastRawRBNSpotTime, MostMinutesWithoutSpots(connection), now)) {
    Reconnect(connection);
  }
}

// A line on its way may be a spot; one that goes on from check to check is none.
void WatchUnfinishedLine(RBNConnection& connection) {
  if (!std::exchange(connection.ArrivedSinceCheck, false)) return;
  if (++connection.ChecksWithoutLineEnd > 1) WatchStream(connection, 0);
}

void SwitchOff(RBNConnection& connection) {
  connection.Controls.lblNoConnectionToRBN.Visible = false;
  if (connection.Connected || connection.Socket().State() == SocketState::Connecting) {
    std::string errorText;
    CloseRBNConnection(connection, errorText);
  } else {
    connection.Lines.Clear();
    SetStage(connection, StreamStage::Off);
  }
}

bool IsLoggingIn(const RBNConnection& connection) {
  return connection.Connected && !connection.CallsignSent;
}

}  // namespace

void CloseSilentConnection(RBNConnection& connection) {
  if (!connection.Connected || connection.HeldBack) return;
  const auto mostMinutes = MostMinutesWithoutSpots(connection);
  const auto silence = SilenceOf({connection.ConnectedAt, connection.LastArrival, connection.CallsignSent},
                                 mostMinutes, connection.World.Time.Now());
  if (silence == Silence::None) return;
  const auto reason = Describe(silence, mostMinutes);
  LogEvent(connection.World, "CloseSilentRBNConnection - Connection closed, " + reason);
  connection.Socket().Close();
  ShowNoConnection(connection, reason);
}

void ConnectToRBN(RBNConnection& connection) {
  if (!connection.Controls.chkReverseBeaconSpotsEnabled.Value || !connection.IsConfigured()) return;
  connection.RBNCallsign = Trim(connection.Controls.txtRBNCallsign.Text.Get());
  if (connection.RBNCallsign.empty() || connection.World.ShuttingDown) return;
  std::string errorText;
  OpenRBNConnection(connection, connection.Config.RBNHost, connection.Port(), errorText);
}

bool TakeRBNSpots(RBNConnection& connection, const SpotFilter& filter,
                  const CallsignCollection& knownActivators, const AlertCollection& alerts,
                  RecentRBNSpots& recentSpots, SpotCollection& newSpots,
                  std::vector<std::string>& unmatched) {
  if (!connection.Lines.HasLines() || IsLoggingIn(connection)) {
    if (connection.Connected) WatchUnfinishedLine(connection);
    return false;
  }
  if (connection.Connected) connection.Controls.lblNoConnectionToRBN.Visible = false;
  connection.ArrivedSinceCheck = false;
  connection.ChecksWithoutLineEnd = 0;
  const auto text = connection.Lines.TakeLines();
  TakeHeldBack(connection);
  std::int32_t spotLines = 0;
  std::string errorText;
  const auto result =
      ParseReverseBeaconSpots(connection.World, FromFirstSpotLine(text), filter, knownActivators, alerts,
                              recentSpots, newSpots, spotLines, errorText, &unmatched);
  WatchStream(connection, spotLines);
  return result == StatusDone && !newSpots.Empty();
}

void chkReverseBeaconSpotsEnabled_Click(RBNConnection& connection) {
  auto& controls = connection.Controls;
  if (!controls.chkReverseBeaconSpotsEnabled.Value) {
    SwitchOff(connection);
  } else if (Trim(controls.txtRBNCallsign.Text.Get()).empty()) {
    controls.txtRBNCallsign.SetFocus.Raise();
    connection.World.Messages.ShowMessage(
        "You must first enter your Reverse Beacon Network Login Callsign before enabling spots from Reverse "
        "Beacon Network.",
        "Brelwin", MessageIcon::Exclamation);
    controls.chkReverseBeaconSpotsEnabled.Value = false;
  } else if (!connection.Connected && connection.World.Going.LetStart(Work::Fetch)) {
    ConnectToRBN(connection);
  }
}

}  // namespace brelwin
