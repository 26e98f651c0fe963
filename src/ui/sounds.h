// Playing wave files, and the two buttons that try a sound out.
#pragma once

#include <string>
#include <string_view>

#include "controls/filters_tab.h"
#include "controls/gateway_tab.h"
#include "platform/host.h"

namespace brelwin {

// Plays one wave file; a name without a folder stands in the program's folder. With `wait` it returns when
// the sound has ended, else at once. False for a blank name. A missing file gives True and the error text,
// which is cleared on entry; that the system cannot play is not reported.
bool PlayWaveFile(Host& host, std::string_view fileName, bool wait, std::string& errorText);

// Play the sounds that are named on the screen; what is wrong with them is shown in a message box.
void cmdPlayAlertSound_Click(Host& host, const FiltersTab& filters);
void cmdPlayGatewaySound_Click(Host& host, const GatewayTab& gateway);

}  // namespace brelwin
