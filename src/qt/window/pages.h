// The tabs of the window, in their order: each is made here, and bound to its controls by their names.
#pragma once

#include <functional>
#include <string>

#include "controls/screen.h"

class QWidget;

namespace brelwin {

// The list, and how often and what the program looks for.
QWidget* MakeSpotsPage();

// Which spots are shown, and when and how the program is heard.
QWidget* MakeFiltersPage(FiltersTab& controls);

// The two spot logs.
QWidget* MakeLogsPage(LogsTab& controls);

// The connection to the Reverse Beacon Network, which of its spots are of interest, and the alerts.
QWidget* MakeRBNPage();

// Whose spots are sent to Sotawatch, as whom, and when not.
QWidget* MakeGatewayPage(GatewayTab& controls);

// Websites and files.
QWidget* MakeFilesPage(FilesTab& controls);

// Where the operator is, and which lists and logs tell of the rest. `importSummits` is given the path of the
// summit list that the user chose.
QWidget* MakePlacesPage(PlacesTab& controls, std::function<void(const std::string& path)> importSummits);

// About the program.
QWidget* MakeAboutPage();

}  // namespace brelwin
