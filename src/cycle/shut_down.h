// The orderly end of the program.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// The user or the system asks to quit: every wait ends from here on. A second call does nothing.
void Form_QueryUnload(MainWindow& window);

// Saves the settings and ends the program. Runs once, after everything that was running has returned.
void Form_Unload(MainWindow& window);

// Calls Form_Unload, once, when quitting was asked for. To be called when nothing of the program is on the
// stack.
void UnloadWhenDue(MainWindow& window);

}  // namespace brelwin
