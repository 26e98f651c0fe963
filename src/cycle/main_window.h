// The composition: every long-lived object of the program, side by side, one struct per concern. It has no
// logic; the steps of this floor work on the few structs that they take, and only the ways in see all of it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "around/surroundings.h"
#include "board/board_keeper.h"
#include "controls/screen.h"
#include "core/websites.h"
#include "cycle/alerts_refresh.h"
#include "cycle/callsign_lists.h"
#include "cycle/entries.h"
#include "cycle/skimmer_spots.h"
#include "cycle/source_status.h"
#include "cycle/spot_lists.h"
#include "cycle/spot_sources.h"
#include "cycle/timers.h"
#include "gateway/gateway_processing.h"
#include "gateway/tab_rules.h"
#include "platform/host.h"
#include "platform/stall_watch.h"
#include "settings/configuration.h"
#include "settings/settings.h"
#include "settings/settings_notices.h"

namespace brelwin {

struct MainWindow {
  explicit MainWindow(Host& host);

  Host& World;
  Screen Controls;
  Configuration Config;
  Settings SettingsFile{World, Controls, Config};
  Entries Ways{World};

  Surroundings Around{World, Controls.Places};
  SpotLists Lists{World, Controls, Config, Around};
  CallsignLists Callsigns;
  std::vector<Website> Websites;
  SpotSources Sources;
  Announcements Announced;
  SkimmerStreams Streams{World, Controls, Config};
  BoardKeeper Activations{World};
  StallWatch Stalls;
  Heartbeat StallHeartbeat{World.Time, World.Events, Stalls};
  Gateway SpotGateway{World,
                      Controls.Gateway,
                      Controls.RBN,
                      Config,
                      &Lists.RecentSotawatchSpots,
                      Callsigns.ExcludedActivators,
                      Callsigns.TrustedSpotters,
                      Callsigns.KnownActivators,
                      Stalls,
                      &Controls.Spots.chkSotawatchJSONService,
                      &Sources.Service};

  std::function<void()> OnTick;  // of the check timer
  CheckPace Pace;
  StartupDelay Delay;
  SourceStatus Status{Controls, World.Time, Sources, Announced, Streams, Pace};

  std::optional<ActivityMark> FormLoading{std::in_place, World.Going, Activity::FormLoading};
  std::optional<ActivityMark> Ending;  // from when quitting was asked for
  bool Unloaded = false;               // Form_Unload has begun

  std::vector<Watch> Watches;
  std::optional<std::string> TemplateLookedAt;  // the comment template that was last warned of, if need be
  std::optional<GatewayTabWords> GatewayWords;  // from when the settings have been loaded
  std::optional<BoxWarnings> Warnings;          // the same
};

}  // namespace brelwin
