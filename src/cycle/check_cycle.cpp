#include "cycle/check_cycle.h"

#include <utility>

#include "core/trap.h"
#include "cycle/sotawatch_spots.h"
#include "radio/numbers.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

AlertCommandScene SceneOf(AlertCollection& alerts, Gateway& gateway, const SpotFilter& filter) {
  return {alerts, filter, [&gateway](const Spot& spot) { return gateway.Posted.Holds(spot); },
          gateway.Settings.LogAlertsAfterSelfSpots};
}

SotawatchSpotTakers SotawatchTakersOf(MainWindow& window, const SpotFilter& filter) {
  auto& announced = window.Announced;
  return {window.Lists, window.Callsigns, announced.Commands,
          SceneOf(announced.Alerts, window.SpotGateway, filter), window.Activations};
}

void TakeAlertsAndSkimmerSpots(MainWindow& window, SpotFilter& filter) {
  auto& announced = window.Announced;
  const AlertReading reading{window.Sources, window.Callsigns.KnownActivators,
                             SceneOf(announced.Alerts, window.SpotGateway, filter)};
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value)
    return TrapErrorsSilently([&] { ReadAlertsForCommands(announced, reading); });
  TrapErrorsSilently([&] { RefreshAlertsWhenDue(announced, reading); });
  window.Activations.TakeAnnouncements(announced.Alerts, filter);
  TrapErrorsSilently([&] {
    TakeSkimmerSpots(
        window.Streams,
        {window.SpotGateway, window.Lists, window.Stalls, announced.Alerts, window.Callsigns.KnownActivators},
        filter);
  });
}

// While they wait, the timer or get-spots-now may ask for another check: that one leaves these steps out. So
// does a check that finds the login being tested, since the gateway could only wait for the end of it.
void TakeSlowSteps(MainWindow& window, SpotFilter& filter) {
  if (!window.World.Going.LetStart(Work::StreamSteps)) return;
  const ActivityMark mark(window.World.Going, Activity::StreamStepsInProgress);
  TakeAlertsAndSkimmerSpots(window, filter);
}

void EndReload(MainWindow& window) {
  if (!window.World.Going.Includes(Activity::CheckInProgress))
    window.Controls.Spots.picDownload.Visible = false;
  ShowSourceStatus(window);
}

}  // namespace

void CheckForSpots(MainWindow& window) {
  auto& screen = window.Controls;
  auto& tab = screen.Spots;
  SpotFilter filter;
  TrapErrorsSilently([&] {
    tab.lblCheckingForSpots.Visible = true;
    window.World.Events.DoEvents();
    FillFilterFromScreen(screen, window.Config, filter);
  });
  TrapErrorsSilently([&] {
    TakeSotawatchSpots(window.Sources, SotawatchTakersOf(window, filter), filter,
                       screen.Filters.chkAlertSoundsOnStartup);
  });
  TakeSlowSteps(window, filter);
  window.Activations.TakeAnnouncements(window.Announced.Alerts, filter);
  TrapErrorsSilently([&] {
    tab.picDownload.Visible = false;
    tab.lblCheckingForSpots.Visible = false;
    ShowSourceStatus(window);
  });
}

void ReloadSpotList(MainWindow& window) {
  try {
    SpotFilter filter;
    FillFilterFromScreen(window.Controls, window.Config, filter);
    ReplaceSpotLists(window.Sources, SotawatchTakersOf(window, filter), filter,
                     window.Controls.Filters.chkAlertSoundsOnStartup);
  } catch (...) {
    TrapErrorsSilently([&] { EndReload(window); });
    throw;
  }
  EndReload(window);
}

void ShowSourceStatus(MainWindow& window) {
  ShowSources(window.Status);
  ShowCaption(window.Status);
  ShowHiddenSpots(window.Lists, window.Controls.Filters);
  ShowSettingsNotice(window.Controls.Spots.lblSettingsNotice, window.SettingsFile);
}

}  // namespace brelwin
