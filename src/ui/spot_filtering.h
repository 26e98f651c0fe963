// The filter as the user has set it on the screen, and which spots each output receives by it: the list on
// the screen, the two spot logs and the raw log.
#pragma once

#include <cstdint>

#include "controls/screen.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Takes over every choice of the user. What the last filtering left in the filter stays.
void FillFilterFromScreen(const Screen& screen, const Configuration& configuration, SpotFilter& filter);

// Logs the spots, filtered or all as the filter says for each log, and with `logRawSpots` also raw; then,
// when the display is filtered, leaves only the spots to be displayed in `spots` and marks the others as
// hidden. The source rule does not apply here: it is switched off in the filter. Returns -1, also without
// spots, and 0 when a run-time error ended it, which is logged.
std::int32_t PerformDisplayFilteringAndSpotLogging(Host& host, const LogsTab& logs, bool logRawSpots,
                                                   SpotFilter& filter, SpotCollection& spots);

}  // namespace brelwin
