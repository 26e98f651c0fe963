// The filter as the user has set it on the screen.
#pragma once

#include "controls/screen.h"
#include "settings/configuration.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Takes over every choice of the user. What the last filtering left in the filter stays.
void FillFilterFromScreen(const Screen& screen, const Configuration& configuration, SpotFilter& filter);

}  // namespace brelwin
