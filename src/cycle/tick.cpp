#include "cycle/tick.h"

#include <cmath>

#include "cycle/check_cycle.h"
#include "cycle/start_up.h"

namespace brelwin {
namespace {

void CountDown(MainWindow& window) {
  auto& delay = window.Delay;
  const auto seconds = static_cast<float>(SecondsBetween(delay.Since, window.World.Time.Now()));
  if (seconds >= delay.Seconds) {
    delay.Running.reset();
    InitializeInternetConnections(window);
  } else {
    ShowStartupDelay(window.Controls.Spots.txtSPOTList, std::nearbyint(delay.Seconds - seconds));
  }
}

void Check(MainWindow& window) {
  auto& timer = window.Controls.tmrCheckSpots;
  const ActivityMark mark(window.World.Going, Activity::CheckInProgress);
  timer.Enabled = false;
  ShowUTCTime(window.Controls.Spots.lblUTCTime, window.World.Time);
  CheckForSpots(window);
  window.World.Events.DoEvents();
  timer.Enabled = !window.World.ShuttingDown;
}

}  // namespace

void tmrCheckSpots_Timer(MainWindow& window) {
  if (!window.World.Going.LetStart(Work::Tick)) return;
  if (window.World.Going.LetStart(Work::Check)) {
    Check(window);
  } else {
    CountDown(window);
  }
}

}  // namespace brelwin
