// The Sotawatch side of a check: what the chosen feed has delivered goes into the lists, the logs and the
// ear.
#pragma once

#include "cycle/main_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Reads the feed anew and replaces both lists by what it holds. When the feed cannot be read the lists stay.
// Errors come through: the button swallows them, start-up shows them.
void ReloadSpotList(MainWindow& window);

// Reads what is new in the feed and puts it in front of the lists. Up to the first read of a run that
// succeeded this is the start: its spots are no news, and heard only when the user wants sounds then.
void TakeSotawatchSpots(MainWindow& window, SpotFilter& filter);

}  // namespace brelwin
