#include "cycle/settings_handlers.h"

#include <string>
#include <utility>

#include "core/event_log.h"
#include "cycle/source_status.h"
#include "cycle/spot_list_display.h"
#include "cycle/streams.h"
#include "gateway/tab_rules.h"
#include "radio/numbers.h"
#include "rbn/stream.h"

namespace brelwin {
namespace {

void Complain(MainWindow& window, std::string_view text) {
  window.World.Messages.ShowMessage(text, "Settings", MessageIcon::Exclamation);
}

std::int32_t NumberIn(const TextBox& box) {
  return WholeNumber(box.Text.Get());
}

// Settings that are applied may have switched the stream on.
void ConnectWhenWanted(MainWindow& window) {
  const bool isWanted = window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value;
  for (auto* stream : StreamsOf(window)) {
    if (isWanted && !stream->Connected && !window.World.FetchInProgress) ConnectToRBN(*stream);
  }
}

}  // namespace

void txtSecondsBetweenChecks_LostFocus(MainWindow& window) {
  auto& box = window.Controls.Spots.txtSecondsBetweenChecks;
  const auto seconds = NumberIn(box);
  if (seconds < 3 || seconds > 60) {
    Complain(window, "The Seconds Between Checks for New Spots must be between 3 and 60");
    box.Text = std::to_string(window.CheckInterval / 1000);
    return;
  }
  window.CheckInterval = seconds * 1000;
  if (window.WaitingForStartupDelay == 1) return;  // the countdown's own interval goes on
  window.Controls.tmrCheckSpots.Interval = window.CheckInterval;
  window.TickDriver.Restart();
}

void txtDuplicateSpotFilteringPeriod_LostFocus(MainWindow& window) {
  if (NumberIn(window.Controls.RBN.txtDuplicateSpotFilteringPeriod) >= 1) return;
  Complain(window, "The Duplicate Spot Filtering Period (minutes) must be at least 1 minute.");
}

void txtMaximumSpotsInList_LostFocus(MainWindow& window) {
  const auto maximum = NumberIn(window.Controls.Spots.txtMaximumSpotsInList);
  if (maximum <= 0 || static_cast<std::size_t>(maximum) >= window.SpotList.Count()) return;
  TrimSpotList(window);
  DisplaySpotList(window, window.SpotList);
}

void txtSpotCommentTemplate_LostFocus(MainWindow& window) {
  const auto& text = window.Controls.Gateway.txtSpotCommentTemplate.Text.Get();
  if (std::exchange(window.TemplateLookedAt, text) == text) return;
  const auto warning = GatewayMarkWarning(text);
  if (!warning.empty()) LogEvent(window.World, "SpotCommentTemplate - " + warning);
}

void cmdSaveSettings_Click(MainWindow& window) {
  if (window.SettingsFile.SaveSettings()) {
    window.Controls.Spots.lblStatus.Caption = "Settings saved";
    ShowSettingsNotice(window);
    ConnectWhenWanted(window);
  } else {
    Complain(window, "The settings could not be saved. The event log says why.");
  }
}

}  // namespace brelwin
