#include "places/map_projection.h"

#include <cmath>

namespace brelwin {

MapProjection::MapProjection(GeoPoint center)
    : center_(center),
      toCenter_(VectorOf(center)),
      toEast_(VectorOf({0, center.Longitude + 90})),
      toNorth_(VectorOf({center.Latitude + 90, center.Longitude})) {}

MapPoint MapProjection::Project(const UnitVector& place) const {
  const double east = DotProduct(place, toEast_);
  const double north = DotProduct(place, toNorth_);
  const double toCenter = DotProduct(place, toCenter_);
  const double sine = std::hypot(east, north);
  const double distance = EarthRadiusInKm * std::atan2(sine, toCenter);
  if (sine == 0) return {0, toCenter > 0 ? 0 : MapRadiusInKm};
  return {distance * east / sine, distance * north / sine};
}

std::optional<GeoPoint> MapProjection::PlaceAt(MapPoint point) const {
  const double distance = std::hypot(point.East, point.North);
  if (distance > MapRadiusInKm) return std::nullopt;
  if (distance == 0) return center_;
  const double angle = distance / EarthRadiusInKm;
  const double toCenter = std::cos(angle);
  const double east = std::sin(angle) * point.East / distance;
  const double north = std::sin(angle) * point.North / distance;
  return PointOf({toCenter * toCenter_.X + east * toEast_.X + north * toNorth_.X,
                  toCenter * toCenter_.Y + east * toEast_.Y + north * toNorth_.Y,
                  toCenter * toCenter_.Z + east * toEast_.Z + north * toNorth_.Z});
}

}  // namespace brelwin
