// A place on the earth, taken for a sphere, and the same place as a direction from the earth's centre. Sums
// of directions need no care at the poles or the date line; people write degrees.
#pragma once

#include <vector>

namespace brelwin {

inline constexpr double EarthRadiusInKm = 6371.0;

struct GeoPoint {
  double Latitude = 0;   // degrees, -90 to 90, north is positive
  double Longitude = 0;  // degrees, -180 to 180, east is positive

  bool operator==(const GeoPoint&) const = default;
};

// Length 1: X through 0 N 0 E, Y through 0 N 90 E, Z through the north pole.
struct UnitVector {
  double X = 1;
  double Y = 0;
  double Z = 0;
};

// The corners of a closed line on the sphere; the last one is joined to the first. Edges are great circles.
using SphereRing = std::vector<UnitVector>;

double DegreesToRadians(double degrees);
double RadiansToDegrees(double radians);

// The direction of a place, and the place in a direction. Longitudes come out within -180 to 180.
UnitVector VectorOf(GeoPoint point);
GeoPoint PointOf(const UnitVector& direction);

// The cosine of the angle between two directions, -1 to 1.
double DotProduct(const UnitVector& left, const UnitVector& right);

// The direction halfway between two others. Opposite ones have no middle: the left one is given.
UnitVector MiddleOf(const UnitVector& left, const UnitVector& right);

}  // namespace brelwin
