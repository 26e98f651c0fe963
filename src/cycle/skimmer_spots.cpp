#include "cycle/skimmer_spots.h"

#include <string>
#include <vector>

#include "cycle/spot_details.h"
#include "cycle/spot_list_display.h"
#include "cycle/spot_outputs.h"
#include "rbn/stream.h"
#include "ui/alerting.h"

namespace brelwin {
namespace {

// The values are read afresh for every check.
void SendToSotawatch(MainWindow& window, const SpotCollection& heard) {
  const auto values = GatewayValuesFromScreen(window.Controls.Gateway, window.World.Numbers);
  std::string message;
  PerformGatewayProcessing(window.SpotGateway, heard, values, message);
}

void HandleNewSpots(MainWindow& window, SpotCollection& heard, SpotFilter& filter) {
  SendToSotawatch(window, heard);
  FilterAndLog(window, filter, heard);
  heard.Reverse();  // spots come in the order of their lines; the list has the newest on top
  MergeIntoSpotList(window, heard);
  AlertOnNewSpots(window.World, heard, filter, window.SpotList, nullptr, &window.Controls.Window, false);
}

}  // namespace

// What came before a connection ended is shown, logged and heard before the next one is waited for. The user
// may have switched the stream off while the check waited for something else.
void TakeSkimmerSpots(MainWindow& window, SpotFilter& filter) {
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return;
  CloseSilentConnection(window.RBN);
  const bool foundNoConnection = !window.RBN.Connected;
  SpotCollection heard;
  std::vector<std::string> unmatched;
  const bool hasNewSpots = TakeRBNSpots(window.RBN, filter, window.KnownActivators, window.Alerts,
                                        window.RBNSpots, heard, unmatched);
  ShowUnmatchedStations(window, unmatched, filter);
  if (hasNewSpots) HandleNewSpots(window, heard, filter);
  if (foundNoConnection && !window.RBN.Connected) ConnectToRBN(window.RBN);
}

}  // namespace brelwin
