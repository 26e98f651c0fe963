#include "cycle/sotawatch_spots.h"

#include "core/status_codes.h"
#include "core/trap.h"
#include "cycle/alerts_refresh.h"
#include "cycle/source_status.h"
#include "cycle/spot_changes.h"
#include "cycle/spot_list_display.h"
#include "cycle/spot_outputs.h"
#include "cycle/spots_source.h"
#include "spots/spot_collections.h"
#include "ui/alerting.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

// Independent of any setting: the duplicate checks of later steps rely on it.
constexpr std::int32_t MaximumRecentSotawatchSpots = 200;

void NoteFeedState(MainWindow& window, const SpotCollection& newSpots) {
  auto& state = window.Sotawatch;
  if (state.Text != window.Intake.StatusText()) state.Since = window.World.Time.LocalNow();
  state.Text = window.Intake.StatusText();
  state.Age = window.Intake.AgeText();
  state.Spots += static_cast<std::int64_t>(newSpots.Count());
  window.Controls.Spots.lblStatus.Caption = state.Age.empty() ? state.Text : state.Text + "; " + state.Age;
}

void ShowTwitterConnection(MainWindow& window, std::int32_t result) {
  auto& label = window.Controls.Spots.lblNoConnectionToTwitter;
  if (result == StatusDone) label.Visible = false;
  if (result == StatusNoConnection) label.Visible = true;
}

std::int32_t ReadFeed(MainWindow& window, const SpotFilter& filter, SpotCollection& newSpots) {
  auto& tab = window.Controls.Spots;
  tab.picDownload.Visible = true;
  std::string errorText;
  auto sinceID = window.TwitterSinceID;
  const auto source = SourceInUse(window);
  if (source == SpotSource::Service) LookForObstacle(window);
  const auto result = window.Intake.GetSotawatchSpots(source, window.Config.Addresses, window.Config.Test,
                                                      window.KnownActivators, window.TrustedSpotters, sinceID,
                                                      newSpots, errorText);
  if (window.World.ShuttingDown) return result;
  // The user may have switched to the other feed during the fetch: this one's memory and label are gone then.
  if (SourceInUse(window) == SpotSource::Twitter) {
    window.TwitterSinceID = sinceID;
    ShowTwitterConnection(window, result);
  }
  NoteFeedState(window, newSpots);
  if (result == StatusDone || !newSpots.Empty()) window.Sotawatch.WasRead = true;
  CarryOutAlertCommands(window, newSpots, filter);
  return result;
}

// What a start brings is heard only when the user wants that.
void AlertOn(MainWindow& window, const SpotCollection& newSpots, SpotFilter& filter, bool atStartup) {
  if (atStartup && !window.Controls.Filters.chkAlertSoundsOnStartup.Value) return;
  AlertOnNewSpots(window.World, newSpots, filter, window.SpotList, nullptr, &window.Controls.Window,
                  atStartup);
}

void Reload(MainWindow& window) {
  SpotFilter filter;
  FillFilterFromScreen(window.Controls, window.Config, filter);
  const auto sinceID = std::exchange(window.TwitterSinceID, {});
  window.Intake.Forget();
  SpotCollection newSpots;
  const auto result = ReadFeed(window, filter, newSpots);
  if (window.World.ShuttingDown) return;
  if (result != StatusDone) {
    window.TwitterSinceID = sinceID;
    DisplaySpotList(window, window.SpotList);
    return;
  }
  window.Intake.TakeChanges();  // the lists are new
  window.RecentSotawatchSpots = FirstSpots(WithoutTests(newSpots), MaximumRecentSotawatchSpots);
  window.SpotsHiddenForPoints = 0;
  FilterAndLog(window, filter, newSpots);
  window.SpotList = newSpots;
  TrimSpotList(window);
  DisplaySpotList(window, window.SpotList);
  AlertOn(window, newSpots, filter, true);
}

void EndReload(MainWindow& window) {
  if (!window.CheckInProgress) window.Controls.Spots.picDownload.Visible = false;
  ShowSourceStatus(window);
}

}  // namespace

void ReloadSpotList(MainWindow& window) {
  try {
    Reload(window);
  } catch (...) {
    TrapErrorsSilently([&] { EndReload(window); });
    throw;
  }
  EndReload(window);
}

void TakeSotawatchSpots(MainWindow& window, SpotFilter& filter) {
  const bool atStartup = !window.Sotawatch.WasRead;
  SpotCollection newSpots;
  ReadFeed(window, filter, newSpots);
  TakeSpotChanges(window, filter);
  if (newSpots.Empty()) return;
  const auto received = newSpots;
  FilterAndLog(window, filter, newSpots);
  MergeInFront(WithoutTests(received), window.RecentSotawatchSpots);
  TrimCollection(MaximumRecentSotawatchSpots, window.RecentSotawatchSpots);
  MergeIntoSpotList(window, newSpots);
  AlertOn(window, newSpots, filter, atStartup);
}

}  // namespace brelwin
