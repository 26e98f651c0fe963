// More about one spot than its line has room for: above all, why it matched an announced activation or not.
#pragma once

#include <string>

#include "cycle/main_window.h"

namespace brelwin {

// The selected spot in words.
std::string SpotDetails(const MainWindow& window, const Spot& spot);

// Says of each skimmer spot of a station with alerts that did not match why not.
void ShowUnmatchedSpots(MainWindow& window, const SpotCollection& heard, const SpotFilter& filter);

}  // namespace brelwin
