// The Reverse Beacon Network side of a check: what skimmers have heard goes to Sotawatch, into the list and
// the logs, and is sounded.
#pragma once

#include "cycle/main_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Takes what the stream has sent, hands the new spots to the gateway and puts them in front of the list. A
// connection that is stale or silent is closed, and where the check found none one attempt is made.
void TakeSkimmerSpots(MainWindow& window, SpotFilter& filter);

}  // namespace brelwin
