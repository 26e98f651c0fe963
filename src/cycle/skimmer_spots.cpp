#include "cycle/skimmer_spots.h"

#include <string>
#include <vector>

#include "alerts/matching.h"
#include "core/event_log.h"
#include "radio/dates.h"
#include "radio/mode.h"
#include "rbn/open_connection.h"
#include "rbn/stream.h"

namespace brelwin {
namespace {

// The values are read afresh for every check.
void SendToSotawatch(Gateway& gateway, const SpotCollection& heard, Instant heardSince) {
  const auto values = GatewayValuesFromScreen(gateway.Tab);
  std::string message;
  PerformGatewayProcessing(gateway, heard, heardSince, values, message);
}

// The form has no words for what a second stream may bring beside the modes of the first.
SpotCollection InModesOfTheForm(Host& host, const SpotCollection& heard) {
  SpotCollection inModes;
  for (const auto& [key, spot] : heard) {
    if (ModeWord(spot->ModeString) != "other") {
      inModes.Add(spot, key);
    } else if (spot->IsMatchedToAlert) {
      LogEvent(host, "TakeSkimmerSpots - The spot of " + spot->Station + " in " + spot->ModeString +
                         " is not for Sotawatch, whose form has no such mode.");
    }
  }
  return inModes;
}

// Says of each of these announced stations, which were heard just now, why it did not match.
void ShowUnmatchedStations(RBNTab& tab, const std::vector<std::string>& stations, DateTime utc,
                           const AlertCollection& alerts, const SpotFilter& filter) {
  for (const auto& station : stations)
    tab.lblUnmatchedSpot.Caption = ExplainMatch(station, utc, alerts, filter).Text;
}

// What was refused as too old is sent when it is heard again.
void HandleNewSpots(SkimmerStreams& streams, const RBNConnection& stream, const SkimmerSpotTakers& takers,
                    SpotCollection& heard, SpotFilter& filter, Instant heardSince) {
  auto& gateway = takers.SpotGateway;
  const bool isFirst = &stream == &streams.First;
  SendToSotawatch(gateway, isFirst ? heard : InModesOfTheForm(gateway.World, heard), heardSince);
  for (const auto& key : gateway.TooOld) streams.RecentSpots.Forget(key);
  FilterAndLog(takers.Lists, filter, heard);
  heard.Reverse();  // spots come in the order of their lines; the list has the newest on top
  MergeIntoSpotList(takers.Lists, heard);
  AlertOn(takers.Lists, heard, filter);
}

// What such a connection brings may have been under way for as long as the program stood still.
void CloseStalledConnection(RBNConnection& stream, StallWatch& stalls) {
  LogEvent(stream.World,
           "TakeSkimmerSpots - The program stood still for " + std::to_string(stalls.LatestInMinutes()) +
               " minutes. What the stream had brought by then is not sent, and the connection is renewed.");
  std::string errorText;
  CloseRBNConnection(stream, errorText);
}

// What came before a connection ended is shown, logged and heard before the next one is waited for.
void TakeSpotsOf(RBNConnection& stream, SkimmerStreams& streams, const SkimmerSpotTakers& takers,
                 SpotFilter& filter) {
  CloseSilentConnection(stream);
  const bool foundNoConnection = !stream.Connected;
  const auto heardSince = stream.HeardSince;
  const auto& time = stream.World.Time;
  SpotCollection heard;
  std::vector<std::string> unmatched;
  const bool hasNewSpots = TakeRBNSpots(stream, filter, takers.KnownActivators, takers.Alerts,
                                        streams.RecentSpots, heard, unmatched);
  ShowUnmatchedStations(streams.Tab, unmatched, UTCNow(time), takers.Alerts, filter);
  const bool hasStalled = stream.Connected && takers.Stalls.HasStalledSince(stream.ConnectedAt, time.Now());
  if (hasStalled) CloseStalledConnection(stream, takers.Stalls);
  if (hasNewSpots) HandleNewSpots(streams, stream, takers, heard, filter, heardSince);
  if ((foundNoConnection || hasStalled) && !stream.Connected) ConnectToRBN(stream);
}

}  // namespace

SkimmerStreams::SkimmerStreams(Host& host, Screen& screen, const Configuration& configuration)
    : Tab(screen.RBN),
      First(host, configuration, RBNControls(screen)),
      Second(host, configuration, RBNControls(screen, screen.Spots.lblNoConnectionToRBN2), SecondStream) {}

std::vector<RBNConnection*> SkimmerStreams::InUse() {
  if (!Second.IsConfigured()) return {&First};
  return {&First, &Second};
}

// The user may have switched the streams off while the check waited for something else.
void TakeSkimmerSpots(SkimmerStreams& streams, const SkimmerSpotTakers& takers, SpotFilter& filter) {
  for (auto* stream : streams.InUse()) {
    if (streams.Tab.chkReverseBeaconSpotsEnabled.Value) TakeSpotsOf(*stream, streams, takers, filter);
  }
}

}  // namespace brelwin
