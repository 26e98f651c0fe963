// What is announced, wherever it was read, becomes the alerts of the program, amended by the overrides file,
// the activators' own words and the modifications file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "alerts/alert_collection.h"
#include "alerts/alerts_page_reader.h"
#include "platform/host.h"

namespace brelwin {

struct AlertsPageRequest {
  std::string Url;
  std::int32_t DefaultAfterWindow = 0;  // minutes; of modifications whose alert has no window of its own
  std::int32_t MaximumHoursAhead = 0;   // reading stops at the first alert farther ahead; 0: nowhere
};

// Reads one text of announcements and hands over its activations in their order.
using AlertsReader = std::function<AlertsPageSummary(const PageReadRequest&, const ActivationTaker&)>;

// Replaces the alerts with what the reader hands over, unless there is no day among it: then they stay as
// they are. New activators are added to the known ones and to "SOTAActivators.txt" when there is such a file.
AlertsPageSummary TakeAnnouncedAlerts(Host& host, const AlertsReader& read, const AlertsPageRequest& request,
                                      AlertCollection& alerts, CallsignCollection& knownActivators);

}  // namespace brelwin
