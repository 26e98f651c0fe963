// The Filters and sounds tab: which spots are shown, and when and how the program is heard.
#pragma once

#include "controls/filters_tab.h"

class QWidget;

namespace brelwin {

QWidget* MakeFiltersPage(FiltersTab& controls);

}  // namespace brelwin
