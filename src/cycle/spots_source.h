// Where the spots and the alerts come from, as the user has chosen.
#pragma once

#include "cycle/main_window.h"
#include "spots/service_terms.h"

namespace brelwin {

SpotSource SourceInUse(const MainWindow& window);

// What stands against asking the JSON service. Terms that have not been confirmed are asked for once in a
// run.
ServiceObstacle LookForObstacle(MainWindow& window);

// The user has chosen or left the JSON service: the alerts are read anew, from where he wants them.
void chkSotawatchJSONService_Click(MainWindow& window);

// The box of the feeds counts only without the service.
void ShowWhichFeedsCount(MainWindow& window);

}  // namespace brelwin
