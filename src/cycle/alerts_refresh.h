// The alerts side of a check: the page of announced activations, read again when it is due, reported and
// archived.
#pragma once

#include "cycle/main_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Reads the alerts page when the refresh interval has passed, writes the report whether it could be read or
// not, and then looks whether the alerts are to be archived. A refresh that failed is tried again at the next
// check. While the page is on its way checks go on.
void RefreshAlertsWhenDue(MainWindow& window, const SpotFilter& filter);

// Reads the alerts page for commands that wait for it, where nobody refreshes the alerts. A reading that
// failed is tried again after the refresh interval. While the page is on its way checks go on.
void ReadAlertsForCommands(MainWindow& window, const SpotFilter& filter);

// Acts on the alert commands among the new spots, which are the newest first. Does not yield.
void CarryOutAlertCommands(MainWindow& window, const SpotCollection& newSpots, const SpotFilter& filter);

}  // namespace brelwin
