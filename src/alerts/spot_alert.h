// The alert that a spot makes: what an activator's or a trusted spotter's spot says of an activation.
#pragma once

#include "alerts/sota_alert.h"
#include "platform/clock.h"
#include "spots/spot.h"

namespace brelwin {

// For the time of the spot, or the present one for a spot without a time; without a window of its own. Its
// texts are single lines.
SOTAAlert AlertOfSpot(const Spot& spot, const Clock& clock);

}  // namespace brelwin
