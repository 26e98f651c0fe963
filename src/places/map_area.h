// Areas of the earth, such as land or night, as areas of the map.
#pragma once

#include <vector>

#include "places/geo_point.h"
#include "places/map_projection.h"

namespace brelwin {

// Closed lines on the map. A point belongs to the area when a way from it out of the map crosses them an odd
// number of times (odd-even filling).
struct MapArea {
  std::vector<std::vector<MapPoint>> Rings;
};

// The map's picture of the area that lies between the rings, on the side where `outside` is not. Edges are
// split until they follow the curve they become. An area that holds the antipode reaches the rim all around:
// there the rim is one of its rings, so that filling does not turn it inside out.
MapArea AreaOnMap(const MapProjection& projection, const std::vector<SphereRing>& rings,
                  const UnitVector& outside);

// Whether the point belongs to the area.
bool IsInArea(const MapArea& area, MapPoint point);

// The shortest way between two places as a line on the map.
std::vector<MapPoint> WayOnMap(const MapProjection& projection, GeoPoint from, GeoPoint to);

// A circle around the map's centre, of one point for every degree.
std::vector<MapPoint> CircleOnMap(double radiusInKm);

}  // namespace brelwin
