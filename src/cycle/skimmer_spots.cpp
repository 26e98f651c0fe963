#include "cycle/skimmer_spots.h"

#include <string>
#include <vector>

#include "core/event_log.h"
#include "cycle/spot_details.h"
#include "cycle/spot_list_display.h"
#include "cycle/spot_outputs.h"
#include "cycle/streams.h"
#include "radio/mode.h"
#include "rbn/open_connection.h"
#include "rbn/stream.h"
#include "ui/alerting.h"

namespace brelwin {
namespace {

// The values are read afresh for every check.
void SendToSotawatch(MainWindow& window, const SpotCollection& heard, Instant heardSince) {
  const auto values = GatewayValuesFromScreen(window.Controls.Gateway);
  std::string message;
  PerformGatewayProcessing(window.SpotGateway, heard, heardSince, values, message);
}

// The form has no words for what a second stream may bring beside the modes of the first.
SpotCollection InModesOfTheForm(MainWindow& window, const SpotCollection& heard) {
  SpotCollection inModes;
  for (const auto& [key, spot] : heard) {
    if (ModeWord(spot->ModeString) != "other") {
      inModes.Add(spot, key);
    } else if (spot->IsMatchedToAlert) {
      LogEvent(window.World, "TakeSkimmerSpots - The spot of " + spot->Station + " in " + spot->ModeString +
                                 " is not for Sotawatch, whose form has no such mode.");
    }
  }
  return inModes;
}

bool HasStalledSince(MainWindow& window, Instant moment) {
  return window.Stalls.HasStalledSince(moment, window.World.Time.Now());
}

// What was refused as too old is sent when it is heard again.
void HandleNewSpots(MainWindow& window, const RBNConnection& stream, SpotCollection& heard,
                    SpotFilter& filter, Instant heardSince) {
  const bool isFirst = &stream == &window.RBN;
  SendToSotawatch(window, isFirst ? heard : InModesOfTheForm(window, heard), heardSince);
  for (const auto& key : window.SpotGateway.TooOld) window.RBNSpots.Forget(key);
  FilterAndLog(window, filter, heard);
  heard.Reverse();  // spots come in the order of their lines; the list has the newest on top
  MergeIntoSpotList(window, heard);
  AlertOnNewSpots(window.World, heard, filter, window.SpotList, nullptr, &window.Controls.Window, false);
}

// What such a connection brings may have been under way for as long as the program stood still.
void CloseStalledConnection(MainWindow& window, RBNConnection& stream) {
  LogEvent(window.World,
           "TakeSkimmerSpots - The program stood still for " +
               std::to_string(window.Stalls.LatestInMinutes()) +
               " minutes. What the stream had brought by then is not sent, and the connection is renewed.");
  std::string errorText;
  CloseRBNConnection(stream, errorText);
}

// What came before a connection ended is shown, logged and heard before the next one is waited for.
void TakeSpotsOf(MainWindow& window, RBNConnection& stream, SpotFilter& filter) {
  CloseSilentConnection(stream);
  const bool foundNoConnection = !stream.Connected;
  const auto heardSince = stream.HeardSince;
  SpotCollection heard;
  std::vector<std::string> unmatched;
  const bool hasNewSpots =
      TakeRBNSpots(stream, filter, window.KnownActivators, window.Alerts, window.RBNSpots, heard, unmatched);
  ShowUnmatchedStations(window, unmatched, filter);
  const bool hasStalled = stream.Connected && HasStalledSince(window, stream.ConnectedAt);
  if (hasStalled) CloseStalledConnection(window, stream);
  if (hasNewSpots) HandleNewSpots(window, stream, heard, filter, heardSince);
  if ((foundNoConnection || hasStalled) && !stream.Connected) ConnectToRBN(stream);
}

}  // namespace

// The user may have switched the streams off while the check waited for something else.
void TakeSkimmerSpots(MainWindow& window, SpotFilter& filter) {
  for (auto* stream : StreamsOf(window)) {
    if (window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) TakeSpotsOf(window, *stream, filter);
  }
}

}  // namespace brelwin
