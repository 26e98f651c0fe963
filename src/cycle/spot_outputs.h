// New spots on their way to the list and the logs, and what the user is told of those that do not reach it.
#pragma once

#include "cycle/main_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Logs the spots, leaves those for the list in the collection, and counts those that are kept out of it only
// because their points are not known.
void FilterAndLog(MainWindow& window, SpotFilter& filter, SpotCollection& spots);

// Says how many spots have been kept out so since the list was loaded, for as long as the list is filtered by
// points.
void ShowHiddenSpots(MainWindow& window);

}  // namespace brelwin
