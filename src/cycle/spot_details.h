// More about one spot than its line has room for: above all, why it matched an announced activation or not.
#pragma once

#include <string>
#include <vector>

#include "cycle/main_window.h"

namespace brelwin {

// The selected spot in words.
std::string SpotDetails(const MainWindow& window, const Spot& spot);

// Says of each of these announced stations, which were heard just now, why it did not match.
void ShowUnmatchedStations(MainWindow& window, const std::vector<std::string>& stations,
                           const SpotFilter& filter);

}  // namespace brelwin
