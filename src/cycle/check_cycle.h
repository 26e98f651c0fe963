// The check cycle: everything the program does for the user, in a fixed order. Here the steps are handed what
// they touch.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// One check. Called by the tick and the get-spots-now button. Silent: what it calls logs its own failures.
void CheckForSpots(MainWindow& window);

// Reads the feed anew and replaces the lists by what it holds. Errors come through: the button swallows them,
// start-up shows them.
void ReloadSpotList(MainWindow& window);

// Shows what the sources are doing. With it go the words on what the filter hides and on the settings file.
void ShowSourceStatus(MainWindow& window);

}  // namespace brelwin
