// What a service has changed in spots that were taken before: edited ones replace what they said, deleted
// ones go from the lists. Logs keep what they hold.
#pragma once

#include "cycle/main_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

void TakeSpotChanges(MainWindow& window, SpotFilter& filter);

}  // namespace brelwin
