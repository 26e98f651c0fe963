// The alert: new spots play a sound, and may bring back a minimised window; two buttons try a sound out.
#pragma once

#include <functional>

#include "controls/screen.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Plays the alert sound when the new spots (the batch that was merged into the front of the list, newest
// first) call for it, and brings a minimised window back when the user wants that. With `FilterAlertSounds`
// only spots that pass the filter and its source rule, which this switches on, are considered. `isFirstLoad`
// with no test switch on takes each of them for news. `test` and `window` may be null. Of the spots that call
// for the sound only those of which `isNeeded` is true do; without it, all. It stays silent about errors.
void AlertOnNewSpots(Host& host, const SpotCollection& newSpots, SpotFilter& filter,
                     const SpotCollection& spotList, const TestSettings* test, Form* window, bool isFirstLoad,
                     const std::function<bool(const Spot&)>& isNeeded = {});

// Play the sounds that are named on the screen; what is wrong with them is shown in a message box.
void cmdPlayAlertSound_Click(Host& host, const FiltersTab& filters);
void cmdPlayGatewaySound_Click(Host& host, const GatewayTab& gateway);

}  // namespace brelwin
