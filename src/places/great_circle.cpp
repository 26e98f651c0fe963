#include "places/great_circle.h"

#include <cmath>
#include <numbers>

namespace brelwin {
namespace {

// Also exact for places close together, where the cosine of the angle is not.
double AngleBetween(const UnitVector& left, const UnitVector& right) {
  const double x = left.Y * right.Z - left.Z * right.Y;
  const double y = left.Z * right.X - left.X * right.Z;
  const double z = left.X * right.Y - left.Y * right.X;
  return std::atan2(std::hypot(x, y, z), DotProduct(left, right));
}

double WithinCircle(double degrees) {
  const double rest = std::fmod(degrees, 360);
  return rest < 0 ? rest + 360 : rest;
}

std::string WayText(double distance, double bearing) {
  return std::to_string(std::lround(distance)) + " km at " + std::to_string(std::lround(bearing) % 360) + "°";
}

}  // namespace

double DistanceInKm(GeoPoint from, GeoPoint to) {
  return EarthRadiusInKm * AngleBetween(VectorOf(from), VectorOf(to));
}

double LongDistanceInKm(GeoPoint from, GeoPoint to) {
  return 2 * std::numbers::pi * EarthRadiusInKm - DistanceInKm(from, to);
}

double BearingInDegrees(GeoPoint from, GeoPoint to) {
  const double here = DegreesToRadians(from.Latitude);
  const double there = DegreesToRadians(to.Latitude);
  const double turn = DegreesToRadians(to.Longitude - from.Longitude);
  const double east = std::sin(turn) * std::cos(there);
  const double north = std::cos(here) * std::sin(there) - std::sin(here) * std::cos(there) * std::cos(turn);
  return WithinCircle(RadiansToDegrees(std::atan2(east, north)));
}

double LongBearingInDegrees(GeoPoint from, GeoPoint to) {
  return WithinCircle(BearingInDegrees(from, to) + 180);
}

std::string PathText(GeoPoint from, GeoPoint to) {
  return WayText(DistanceInKm(from, to), BearingInDegrees(from, to)) + ", long path " +
         WayText(LongDistanceInKm(from, to), LongBearingInDegrees(from, to));
}

}  // namespace brelwin
