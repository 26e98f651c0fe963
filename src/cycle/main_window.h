// The composition: every long-lived object of the program, side by side. It has no logic; the procedures of
// this floor work on it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "alerts/alert_collection.h"
#include "alerts/alert_commands.h"
#include "alerts/service_alerts.h"
#include "controls/screen.h"
#include "core/websites.h"
#include "cycle/check_timer.h"
#include "cycle/heartbeat.h"
#include "gateway/gateway_processing.h"
#include "gateway/tab_rules.h"
#include "intake/spot_intake.h"
#include "platform/host.h"
#include "platform/stall_watch.h"
#include "rbn/connection.h"
#include "rbn/recent_spots.h"
#include "settings/configuration.h"
#include "settings/settings.h"
#include "settings/settings_notices.h"
#include "spots/service_client.h"
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
  ServiceClient SpotsService;
  ServiceClient AlertsService;
  SpotIntake Intake{World, SpotsService};

  AlertCollection Alerts;
  ServiceAlerts AnnouncedByService{World, AlertsService};
  AlertCommands Commands;
  RBNConnection RBN{World, Config, RBNControls(Controls)};
  RBNConnection RBN2{World, Config, RBNControls(Controls, Controls.Spots.lblNoConnectionToRBN2),
                     SecondStream};
  RecentRBNSpots RBNSpots;
  StallWatch Stalls;
  Heartbeat StallHeartbeat{World.Time, World.Events, Stalls};
  Gateway SpotGateway{World,
                      Controls.Gateway,
                      Controls.RBN,
                      Config,
                      &RecentSotawatchSpots,
                      ExcludedActivators,
                      TrustedSpotters,
                      KnownActivators,
                      Stalls,
                      &Controls.Spots.chkSotawatchJSONService,
                      &SpotsService};

  // What the feed in use is doing: since when, and how many spots it has brought in this run.
  struct FeedState {
    std::string Text;
    std::optional<DateTime> Since;  // local
    std::string Age;                // that its newest spot is too old, in words; else empty
    std::int64_t Spots = 0;
    bool WasRead = false;  // once in this run
  };
  FeedState Sotawatch;

  // Spots that the filter has kept out of the list since it was loaded, because their points are not known.
  std::size_t SpotsHiddenForPoints = 0;

  // Why the alerts are not as the page has them now, and since when. Empty after a reading that succeeded.
  struct AlertsFailure {
    std::string Text;
    std::optional<DateTime> Since;  // local
  };
  AlertsFailure AlertsNotRead;

  std::string AlertsSource;    // where the alerts were read, in words
  bool TermsAskedFor = false;  // of the JSON service, in this run

  bool FormLoading = true;
  bool CheckInProgress = false;
  bool StreamStepsInProgress = false;       // the part of a check that concerns alerts, stream and gateway
  std::int16_t WaitingForStartupDelay = 0;  // 1 while ticks only count down the delay
  int CheckInterval = 5000;                 // milliseconds between checks, also while the countdown runs
  float StartupDelaySeconds = 0;
  Instant StartupTime;
  std::string TwitterSinceID;
  std::optional<Instant> LastAlertsRefreshTime;  // of the last refresh that succeeded
  std::optional<Instant> LastAlertsArchiveTime;
  std::optional<Instant> LastReadingForCommands;  // of the alerts page, whether it succeeded or not

  std::function<void()> OnTick;  // of the check timer
  int EntryDepth = 0;     // how many entries into the program (ticks, clicks, start-up) are on the stack
  bool Unloaded = false;  // Form_Unload has begun
  CheckTimerDriver TickDriver;
  std::vector<Watch> Watches;
  std::optional<std::string> TemplateLookedAt;  // the comment template that was last warned of, if need be
  std::optional<GatewayTabWords> GatewayWords;  // from when the settings have been loaded
  std::optional<BoxWarnings> Warnings;          // the same
};

}  // namespace brelwin
