// The composition: every long-lived object of the program, side by side. It has no logic; the procedures of
// this floor work on it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/screen.h"
#include "core/websites.h"
#include "cycle/check_timer.h"
#include "intake/spot_intake.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "settings/settings.h"
#include "spots/spot.h"

namespace brelwin {

struct MainWindow {
  explicit MainWindow(Host& host);

  Host& World;
  Screen Controls;
  Configuration Config;
  Settings SettingsFile{World, Controls, Config};

  SpotCollection SpotList;              // what is shown, newest first, bounded by MaximumSpotsInList
  SpotCollection RecentSotawatchSpots;  // as received, newest first, bounded to 200
  CallsignCollection KnownActivators;
  CallsignCollection TrustedSpotters;
  CallsignCollection ExcludedActivators;
  std::vector<Website> Websites;
  SpotIntake Intake{World};

  bool FormLoading = true;
  bool CheckInProgress = false;
  std::int16_t WaitingForStartupDelay = 0;  // 1 while ticks only count down the delay
  int CheckInterval = 5000;                 // milliseconds between checks, also while the countdown runs
  float StartupDelaySeconds = 0;
  Instant StartupTime;
  std::string TwitterSinceID;
  std::string RBNCallsign;

  int EntryDepth = 0;     // how many entries into the program (ticks, clicks, start-up) are on the stack
  bool Unloaded = false;  // Form_Unload has begun
  CheckTimerDriver TickDriver;
};

}  // namespace brelwin
