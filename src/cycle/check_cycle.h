// The timer tick and the check cycle that it drives: everything the program does for the user, in a fixed
// order.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// One check. Called by the tick and by the get-spots-now button. Silent: what it calls logs its own failures.
void CheckForSpots(MainWindow& window);

// One tick of the check timer. The timer stands still while the check runs, so the interval is the pause
// between two checks and ticks never overlap. A tick that comes while a page is being read for somebody else
// is dropped.
void tmrCheckSpots_Timer(MainWindow& window);

}  // namespace brelwin
