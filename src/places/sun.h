// Where the sun stands, and with it the grey line: the circle on which it rises or sets, where the low bands
// open for a while.
#pragma once

#include "base/date_time.h"
#include "places/geo_point.h"

namespace brelwin {

// The place with the sun overhead at a UTC time, right to a twentieth of a degree from 1950 to 2050.
GeoPoint SubsolarPoint(DateTime utc);

// The line between day and night, 90 degrees from the sun.
SphereRing GreyLine(GeoPoint subsolar);

}  // namespace brelwin
