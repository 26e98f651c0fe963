// The Gateway tab: whose spots are sent to Sotawatch, as whom, and when not.
#pragma once

#include "controls/screen.h"

class QWidget;

namespace brelwin {

QWidget* MakeGatewayPage(GatewayTab& controls);

}  // namespace brelwin
