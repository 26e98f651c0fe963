// The azimuthal equidistant map: from its centre every distance and every bearing is true. The whole earth is
// a disc, and its rim is one place, the antipode of the centre.
#pragma once

#include <optional>

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

}  // namespace brelwin
