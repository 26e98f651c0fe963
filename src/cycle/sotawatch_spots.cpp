#include "cycle/sotawatch_spots.h"

#include "cycle/alerts_refresh.h"
#include "cycle/spot_list_display.h"
#include "spots/spot_collections.h"
#include "ui/alerting.h"
#include "ui/filter_from_screen.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

// Independent of any setting: the duplicate checks of later steps rely on it.
constexpr std::int32_t MaximumRecentSotawatchSpots = 200;
constexpr std::int32_t Success = -1;
constexpr std::int32_t NoConnection = -100;

void NoteFeedState(MainWindow& window, const SpotCollection& newSpots) {
  auto& state = window.Sotawatch;
  if (state.Text != window.Intake.StatusText()) state.Since = window.World.Time.LocalNow();
  state.Text = window.Intake.StatusText();
  state.Spots += static_cast<std::int64_t>(newSpots.Count());
  window.Controls.Spots.lblStatus.Caption = state.Text;
}

std::int32_t ReadFeed(MainWindow& window, const SpotFilter& filter, SpotCollection& newSpots) {
  auto& tab = window.Controls.Spots;
  tab.picDownload.Visible = true;
  std::string errorText;
  const auto result = window.Intake.GetSotawatchSpots(
      tab.chkSOTAWatchSpotsViaRSS.Value, window.Config.Addresses, window.Config.Test, window.KnownActivators,
      window.TrustedSpotters, window.TwitterSinceID, newSpots, errorText);
  NoteFeedState(window, newSpots);
  CarryOutAlertCommands(window, newSpots, filter);
  return result;
}

void ShowTwitterConnection(MainWindow& window, std::int32_t result) {
  auto& label = window.Controls.Spots.lblNoConnectionToTwitter;
  if (result == Success) label.Visible = false;
  if (result == NoConnection) label.Visible = true;
}

void FilterAndLog(MainWindow& window, SpotFilter& filter, SpotCollection& spots) {
  PerformDisplayFilteringAndSpotLogging(window.World, window.Controls.Logs, window.Config.LogRawSpots, filter,
                                        spots);
}

void AlertOn(MainWindow& window, const SpotCollection& newSpots, SpotFilter& filter, bool atStartup) {
  AlertOnNewSpots(window.World, newSpots, filter, window.SpotList, nullptr, &window.Controls.Window,
                  atStartup);
}

}  // namespace

void ReloadSpotList(MainWindow& window) {
  SpotFilter filter;
  FillFilterFromScreen(window.Controls, window.Config, window.World.Numbers, filter);
  const auto sinceID = std::exchange(window.TwitterSinceID, {});
  window.Intake.Forget();
  SpotCollection newSpots;
  if (ReadFeed(window, filter, newSpots) != Success) {
    window.TwitterSinceID = sinceID;
    return;
  }
  window.RecentSotawatchSpots = newSpots;
  FilterAndLog(window, filter, newSpots);
  window.SpotList = newSpots;
  TrimSpotList(window);
  DisplaySpotList(window, window.SpotList);
  if (window.Controls.Filters.chkAlertSoundsOnStartup.Value) AlertOn(window, newSpots, filter, true);
}

void TakeSotawatchSpots(MainWindow& window, SpotFilter& filter) {
  const bool viaRSS = window.Controls.Spots.chkSOTAWatchSpotsViaRSS.Value;
  SpotCollection newSpots;
  const auto result = ReadFeed(window, filter, newSpots);
  if (!viaRSS) ShowTwitterConnection(window, result);
  if (newSpots.Empty()) return;
  if (!viaRSS) window.TwitterSinceID = (*newSpots.At(1))->ID;
  const auto received = newSpots;
  FilterAndLog(window, filter, newSpots);
  MergeInFront(received, window.RecentSotawatchSpots);
  TrimCollection(MaximumRecentSotawatchSpots, window.RecentSotawatchSpots);
  MergeIntoSpotList(window, newSpots);
  AlertOn(window, newSpots, filter, false);
}

}  // namespace brelwin
