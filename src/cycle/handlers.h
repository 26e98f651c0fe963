// What happens when the user does something: every control's handler in one place.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// Gives the controls their handlers. Input is dropped until start-up is done and once quitting was asked for;
// input that would start work is dropped while a page is being read.
void ConnectHandlers(MainWindow& window);

}  // namespace brelwin
