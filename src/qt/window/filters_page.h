// The Filters and sounds tab: which spots are shown, and when and how the program is heard.
#pragma once

#include "controls/screen.h"

class QWidget;

namespace brelwin {

QWidget* MakeFiltersPage(FiltersTab& controls);

}  // namespace brelwin
