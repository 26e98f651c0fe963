// Where the spots and the alerts come from, as the user has chosen, and what the feed in use is doing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "controls/screen.h"
#include "cycle/entries.h"
#include "intake/spot_intake.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "settings/settings.h"
#include "spots/service_client.h"
#include "spots/service_terms.h"

namespace brelwin {

struct SpotSources {
  SpotSources(Host& host, SpotsTab& tab, Configuration& configuration, Settings& settings, Entries& entries,
              ServiceSchedule::Random chance);

  Host& World;
  SpotsTab& Tab;
  Configuration& Config;
  Settings& SettingsFile;
  Entries& Ways;
  ServiceClient Service;
  SpotIntake Intake{World, Service};

  // What the feed in use is doing: since when, and how many spots it has brought in this run.
  struct FeedState {
    std::string Text;
    std::optional<DateTime> Since;  // local
    std::string Age;                // that its newest spot is too old, in words; else empty
    std::int64_t Spots = 0;
    bool WasRead = false;  // once in this run
  };
  FeedState Sotawatch;
  std::string TwitterSinceID;
  bool TermsAskedFor = false;  // of the JSON service, in this run
};

SpotSource SourceInUse(const SpotSources& sources);

// What stands against asking the JSON service. Terms that have not been confirmed are asked for once in a
// run.
ServiceObstacle LookForObstacle(SpotSources& sources);

// Says what must be filled in before the service, when that is chosen, can be asked.
void ComplainOfMissingAddress(SpotSources& sources);

// The box of the feeds counts only without the service.
void ShowWhichFeedsCount(SpotsTab& tab);

}  // namespace brelwin
