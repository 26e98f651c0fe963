// What can be done with the chosen spot of the list, as a menu.
#pragma once

#include "qt/window/spot_list_view.h"

namespace brelwin {

// Opens the menu there on the screen, with the keys of the list's own actions. It closes by itself.
void OpenSpotListMenu(SpotListView& list, const QPoint& place);

}  // namespace brelwin
