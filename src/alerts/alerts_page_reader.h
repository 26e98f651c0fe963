// Reads the markup of the alerts page: days, each with tables, each table one announced activation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/sota_alert.h"

namespace brelwin {

// What one table announces: the alert without its station, key and window, and the base callsigns of the one
// or two stations.
struct AnnouncedActivation {
  SOTAAlert Alert;
  std::vector<std::string> Stations;
};

struct AlertsPageSummary {
  bool HasDays = false;  // without a single day heading the page is not the alerts page
  std::size_t NumberOfActivations = 0;
};

struct PageReadRequest {
  DateTime UtcNow;
  DateTime LocalNow;
  std::int32_t MaximumHoursAhead = 0;  // reading stops at the first alert farther ahead; 0: nowhere
};

// Sets the base callsigns of the one or two stations that the plain text names; none for markup.
void SetStations(AnnouncedActivation& activation, std::string_view callsigns);

// Whether the alert lies farther ahead than is read.
bool IsTooFarAhead(const SOTAAlert& alert, const PageReadRequest& request);

using ActivationTaker = std::function<void(AnnouncedActivation&&)>;

// Reads a page, hostile or cut as it may be, in one pass, and hands over its activations in their order.
// Every text kept is plain, without line ends. A heading or time that cannot be read leaves the alert without
// a date and time.
AlertsPageSummary ReadAlertsPage(std::string_view page, const PageReadRequest& request,
                                 const ActivationTaker& take);

}  // namespace brelwin
