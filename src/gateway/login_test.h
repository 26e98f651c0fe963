// The button that tries the Sotawatch login out.
#pragma once

#include "gateway/gateway.h"

namespace brelwin {

// Posts a spot that the server refuses after it has checked the login, so nothing is ever spotted, waits for
// the answer, yielding to the event queue, and tells the user in a message box. Refused in words while a
// submission is under way.
void cmdTestSotawatchLogin_Click(Gateway& gateway);

}  // namespace brelwin
