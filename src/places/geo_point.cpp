#include "places/geo_point.h"

#include <cmath>
#include <numbers>

namespace brelwin {

double DegreesToRadians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

double RadiansToDegrees(double radians) {
  return radians * 180 / std::numbers::pi;
}

UnitVector VectorOf(GeoPoint point) {
  const double latitude = DegreesToRadians(point.Latitude);
  const double longitude = DegreesToRadians(point.Longitude);
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

GeoPoint PointOf(const UnitVector& direction) {
  return {RadiansToDegrees(std::atan2(direction.Z, std::hypot(direction.X, direction.Y))),
          RadiansToDegrees(std::atan2(direction.Y, direction.X))};
}

double DotProduct(const UnitVector& left, const UnitVector& right) {
  return left.X * right.X + left.Y * right.Y + left.Z * right.Z;
}

UnitVector MiddleOf(const UnitVector& left, const UnitVector& right) {
  const UnitVector sum{left.X + right.X, left.Y + right.Y, left.Z + right.Z};
  const double length = std::sqrt(DotProduct(sum, sum));
  return length > 0 ? UnitVector{sum.X / length, sum.Y / length, sum.Z / length} : left;
}

}  // namespace brelwin
