// Which spots each output receives: the list on the screen, the two spot logs and the raw log.
#pragma once

#include <cstdint>

#include "controls/logs_tab.h"
#include "platform/host.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Logs the spots, filtered or all as the filter says for each log, and with `logRawSpots` also raw; then,
// when the display is filtered, leaves only the spots to be displayed in `spots` and marks the others as
// hidden. The source rule does not apply here: it is switched off in the filter. Returns -1, also without
// spots, and 0 when a run-time error ended it, which is logged.
std::int32_t PerformDisplayFilteringAndSpotLogging(Host& host, const LogsTab& logs, bool logRawSpots,
                                                   SpotFilter& filter, SpotCollection& spots);

}  // namespace brelwin
