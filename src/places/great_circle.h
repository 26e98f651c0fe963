// The path a signal takes: along the great circle, the short way or the long way round.
#pragma once

#include <string>

#include "places/geo_point.h"

namespace brelwin {

// The short way between two places, 0 to 20,015 km.
double DistanceInKm(GeoPoint from, GeoPoint to);

// The other way round the earth, 20,015 to 40,030 km.
double LongDistanceInKm(GeoPoint from, GeoPoint to);

// Where to turn the antenna for the short way, clockwise from north, 0 up to but not including 360 degrees;
// 0 for the place itself. At a pole "north" is along the meridian of the place's longitude.
double BearingInDegrees(GeoPoint from, GeoPoint to);

// The same for the long way: the opposite direction.
double LongBearingInDegrees(GeoPoint from, GeoPoint to);

// Both ways in words: "1234 km at 312°, long path 38796 km at 132°".
std::string PathText(GeoPoint from, GeoPoint to);

}  // namespace brelwin
