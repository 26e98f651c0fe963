// The rules of the settings boxes when the user leaves them.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// A whole number from 3 to 60 restarts the timer at once; anything else is refused and the box set back.
void txtSecondsBetweenChecks_LostFocus(MainWindow& window);

// At least 1 minute; less is only complained of.
void txtDuplicateSpotFilteringPeriod_LostFocus(MainWindow& window);

// A new maximum that is smaller than what is shown trims the list at once.
void txtMaximumSpotsInList_LostFocus(MainWindow& window);

// A comment that does not tell that a gateway made it is warned of in the event log, once a template.
void txtSpotCommentTemplate_LostFocus(MainWindow& window);

// Saves the settings on request and says when that could not be done.
void cmdSaveSettings_Click(MainWindow& window);

}  // namespace brelwin
