// Shows the spots on the screen.
#pragma once

#include <string_view>

#include "cycle/main_window.h"

namespace brelwin {

// Shows a text where the spots would be: a countdown, a failure.
void ShowInsteadOfSpots(MainWindow& window, std::string_view text);

// Clears the list, yields twice, then shows the spots of the collection as they are by then.
void DisplaySpotList(MainWindow& window, const SpotCollection& spots);

// Keeps the newest MaximumSpotsInList spots of the list; 0 or less keeps all.
void TrimSpotList(MainWindow& window);

// Puts the new spots in front of the list, trims it and shows it.
void MergeIntoSpotList(MainWindow& window, const SpotCollection& newSpots);

}  // namespace brelwin
