// The azimuthal equidistant map: from its centre every distance and every bearing is true. The whole earth is
// a disc, and its rim is one place, the antipode of the centre. Areas of the earth, such as land or night,
// become areas of the map.
#pragma once

#include <optional>
#include <vector>

#include "places/geo_point.h"

namespace brelwin {

// The map's radius in km: half the earth's circumference.
inline constexpr double MapRadiusInKm = 20015.0868;

// A point of the map, in km east and north of its centre.
struct MapPoint {
  double East = 0;
  double North = 0;
};

class MapProjection {
 public:
  explicit MapProjection(GeoPoint center);

  GeoPoint Center() const { return center_; }

  // Where the map shows the place. The antipode, which is the whole rim, is shown in the north.
  MapPoint Project(const UnitVector& place) const;
  MapPoint Project(GeoPoint place) const { return Project(VectorOf(place)); }

  // The place shown at a point; empty outside the disc.
  std::optional<GeoPoint> PlaceAt(MapPoint point) const;

 private:
  GeoPoint center_;
  UnitVector toCenter_;
  UnitVector toEast_;   // at the centre
  UnitVector toNorth_;  // at the centre
};

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
