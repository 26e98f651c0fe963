// The alerts side of a check: the page of announced activations, read again when it is due, reported and
// archived.
#pragma once

#include <optional>
#include <string>

#include "alerts/alert_collection.h"
#include "alerts/alert_commands.h"
#include "alerts/service_alerts.h"
#include "controls/screen.h"
#include "cycle/spot_sources.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/service_client.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// The announced activations, and where and how well they were read.
struct Announcements {
  Announcements(Host& host, Screen& screen, const Configuration& configuration, CommandMemory memory,
                ServiceSchedule::Random chance);

  Host& World;
  RBNTab& Tab;
  Label& lblNoSotawatchConnection;
  CheckTimer& tmrCheckSpots;
  const Configuration& Config;

  AlertCollection Alerts;
  ServiceClient Service;
  ServiceAlerts ByService{World, Service};
  AlertCommands Commands;
  std::string Source;  // where the alerts were read, in words

  // Why the alerts are not as the page has them, and since when. Empty after a reading that succeeded.
  struct Failure {
    std::string Text;
    std::optional<DateTime> Since;  // local
  };
  Failure NotRead;

  std::optional<Instant> LastRefreshTime;  // of the last refresh that succeeded
  std::optional<Instant> LastArchiveTime;
  std::optional<Instant> LastReadingForCommands;  // whether it succeeded or not
};

// What reading the alerts touches beside them: the source, whose terms may be asked for, and the activators
// that are learned.
struct AlertReading {
  SpotSources& Sources;
  CallsignCollection& KnownActivators;
  AlertCommandScene Scene;
};

// Reads the alerts page when the refresh interval has passed, writes the report whether it could be read or
// not, and then looks whether the alerts are to be archived. A refresh that failed is tried again at the next
// check. While the page is on its way checks go on.
void RefreshAlertsWhenDue(Announcements& announcements, const AlertReading& reading);

// Reads the alerts page for commands that wait for it, where nobody refreshes the alerts. A reading that
// failed is tried again after the refresh interval. While the page is on its way checks go on.
void ReadAlertsForCommands(Announcements& announcements, const AlertReading& reading);

}  // namespace brelwin
