// The Places and log tab: where the operator is, and which lists and logs tell of the rest.
#pragma once

#include <functional>
#include <string>

#include "controls/screen.h"

class QWidget;

namespace brelwin {

// `importSummits` is given the path of the summit list that the user chose.
QWidget* MakePlacesPage(PlacesTab& controls, std::function<void(const std::string& path)> importSummits);

}  // namespace brelwin
