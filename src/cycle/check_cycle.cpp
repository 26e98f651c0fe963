#include "cycle/check_cycle.h"

#include <cmath>
#include <utility>

#include "core/trap.h"
#include "cycle/alerts_refresh.h"
#include "cycle/skimmer_spots.h"
#include "cycle/sotawatch_spots.h"
#include "cycle/source_status.h"
#include "cycle/start_up.h"
#include "radio/numbers.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

void CountDown(MainWindow& window) {
  const auto seconds = SecondsBetween(window.StartupTime, window.World.Time.Now());
  if (static_cast<float>(seconds) >= window.StartupDelaySeconds) {
    window.WaitingForStartupDelay = 0;
    InitializeInternetConnections(window);
  } else {
    const auto left = window.StartupDelaySeconds - static_cast<float>(seconds);
    ShowStartupDelay(window, SingleText(std::nearbyint(left)));
  }
}

void Check(MainWindow& window) {
  auto& timer = window.Controls.tmrCheckSpots;
  const bool isWithinAnother = std::exchange(window.CheckInProgress, true);
  timer.Enabled = false;
  ShowUTCTime(window);
  CheckForSpots(window);
  window.World.Events.DoEvents();
  window.CheckInProgress = isWithinAnother;
  timer.Enabled = !window.World.ShuttingDown;
}

// While they wait, the timer or get-spots-now may ask for another check: that one leaves these steps out. So
// does a check that finds the login being tested, since the gateway could only wait for the end of it.
bool MayTakeSlowSteps(const MainWindow& window) {
  return !window.StreamStepsInProgress && !window.SpotGateway.Transfer.SendInProgress();
}

void TakeSlowSteps(MainWindow& window, SpotFilter& filter) {
  if (!MayTakeSlowSteps(window)) return;
  window.StreamStepsInProgress = true;
  if (window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) {
    TrapErrorsSilently([&] { RefreshAlertsWhenDue(window, filter); });
    TrapErrorsSilently([&] { TakeSkimmerSpots(window, filter); });
  } else {
    TrapErrorsSilently([&] { ReadAlertsForCommands(window, filter); });
  }
  window.StreamStepsInProgress = false;
}

}  // namespace

void CheckForSpots(MainWindow& window) {
  auto& tab = window.Controls.Spots;
  SpotFilter filter;
  TrapErrorsSilently([&] {
    tab.lblCheckingForSpots.Visible = true;
    window.World.Events.DoEvents();
    FillFilterFromScreen(window.Controls, window.Config, filter);
  });
  TrapErrorsSilently([&] { TakeSotawatchSpots(window, filter); });
  TakeSlowSteps(window, filter);
  TrapErrorsSilently([&] {
    tab.picDownload.Visible = false;
    tab.lblCheckingForSpots.Visible = false;
    ShowSourceStatus(window);
  });
}

void tmrCheckSpots_Timer(MainWindow& window) {
  if (window.World.ShuttingDown || window.World.FetchInProgress) return;
  if (window.WaitingForStartupDelay == 1) {
    CountDown(window);
  } else {
    Check(window);
  }
}

}  // namespace brelwin
