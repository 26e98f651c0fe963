// The coasts of the world, coarse: good for a map of the whole earth, right to some kilometres.
#pragma once

#include <vector>

#include "places/geo_point.h"

namespace brelwin {

// Land is between these rings, on the side where the north pole is not. Islands and lakes are rings alike.
std::vector<SphereRing> Coast();

}  // namespace brelwin
