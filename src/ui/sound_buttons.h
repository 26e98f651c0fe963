// The two buttons that try a sound out.
#pragma once

#include "controls/filters_tab.h"
#include "controls/gateway_tab.h"
#include "platform/host.h"

namespace brelwin {

// Play the sounds that are named on the screen; what is wrong with them is shown in a message box.
void cmdPlayAlertSound_Click(Host& host, const FiltersTab& filters);
void cmdPlayGatewaySound_Click(Host& host, const GatewayTab& gateway);

}  // namespace brelwin
