// The tick of the check timer.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// One tick of the check timer. The timer stands still while the check runs, so the interval is the pause
// between two checks and ticks never overlap. A tick that comes while a page is being read for somebody else
// is dropped.
void tmrCheckSpots_Timer(MainWindow& window);

}  // namespace brelwin
