#include "cycle/settings_handlers.h"

#include <string>
#include <utility>

#include "core/event_log.h"
#include "cycle/source_status.h"
#include "gateway/tab_rules.h"
#include "radio/numbers.h"
#include "rbn/stream.h"

namespace brelwin {
namespace {

void Complain(Host& host, std::string_view text) {
  host.Messages.ShowMessage(text, "Settings", MessageIcon::Exclamation);
}

std::int32_t NumberIn(const TextBox& box) {
  return WholeNumber(box.Text.Get());
}

void ConnectWhenWanted(const Host& host, SkimmerStreams& streams) {
  const bool isWanted = streams.Tab.chkReverseBeaconSpotsEnabled.Value;
  for (auto* stream : streams.InUse()) {
    if (isWanted && !stream->Connected && host.Going.LetStart(Work::Fetch)) ConnectToRBN(*stream);
  }
}

}  // namespace

void txtSecondsBetweenChecks_LostFocus(Host& host, Screen& screen, CheckPace& pace) {
  auto& box = screen.Spots.txtSecondsBetweenChecks;
  const auto seconds = NumberIn(box);
  if (seconds < 3 || seconds > 60) {
    Complain(host, "The Seconds Between Checks for New Spots must be between 3 and 60");
    box.Text = std::to_string(pace.CheckInterval / 1000);
    return;
  }
  pace.CheckInterval = seconds * 1000;
  if (!host.Going.LetStart(Work::Check)) return;  // the countdown's own interval goes on
  screen.tmrCheckSpots.Interval = pace.CheckInterval;
  pace.TickDriver.Restart();
}

void txtDuplicateSpotFilteringPeriod_LostFocus(Host& host, const RBNTab& tab) {
  if (NumberIn(tab.txtDuplicateSpotFilteringPeriod) >= 1) return;
  Complain(host, "The Duplicate Spot Filtering Period (minutes) must be at least 1 minute.");
}

void txtMaximumSpotsInList_LostFocus(SpotLists& lists) {
  const auto maximum = NumberIn(lists.Tab.txtMaximumSpotsInList);
  if (maximum <= 0 || static_cast<std::size_t>(maximum) >= lists.SpotList.Count()) return;
  TrimSpotList(lists);
  DisplaySpotList(lists);
}

void txtSpotCommentTemplate_LostFocus(Host& host, const GatewayTab& tab,
                                      std::optional<std::string>& lookedAt) {
  const auto& text = tab.txtSpotCommentTemplate.Text.Get();
  if (std::exchange(lookedAt, text) == text) return;
  const auto warning = GatewayMarkWarning(text);
  if (!warning.empty()) LogEvent(host, "SpotCommentTemplate - " + warning);
}

void cmdSaveSettings_Click(Host& host, SpotsTab& tab, Settings& settings, SkimmerStreams& streams) {
  if (settings.SaveSettings()) {
    tab.lblStatus.Caption = "Settings saved";
    ShowSettingsNotice(tab.lblSettingsNotice, settings);
    ConnectWhenWanted(host, streams);
  } else {
    Complain(host, "The settings could not be saved. The event log says why.");
  }
}

}  // namespace brelwin
