#include "places/sun.h"

#include <cmath>

namespace brelwin {
namespace {

constexpr double SecondsPerDay = 86400;

double SineOfDegrees(double degrees) {
  return std::sin(DegreesToRadians(degrees));
}
double CosineOfDegrees(double degrees) {
  return std::cos(DegreesToRadians(degrees));
}

double DaysSinceNoonOfFirstOfJanuary2000(DateTime utc) {
  return static_cast<double>(utc.Seconds - 946728000) / SecondsPerDay;
}

// The sun's longitude on the ecliptic, from its mean motion and the earth's elliptic orbit.
double EclipticLongitude(double days) {
  const double meanLongitude = 280.460 + 0.9856474 * days;
  const double anomaly = 357.528 + 0.9856003 * days;
  return meanLongitude + 1.915 * SineOfDegrees(anomaly) + 0.020 * SineOfDegrees(2 * anomaly);
}

// How far the earth has turned: the right ascension that is over Greenwich.
double SiderealTime(double days) {
  return 280.46062 + 360.98564737 * days;
}

}  // namespace

GeoPoint SubsolarPoint(DateTime utc) {
  const double days = DaysSinceNoonOfFirstOfJanuary2000(utc);
  const double longitude = EclipticLongitude(days);
  const double obliquity = 23.439 - 0.0000004 * days;
  const double declination = std::asin(SineOfDegrees(obliquity) * SineOfDegrees(longitude));
  const double ascension =
      std::atan2(CosineOfDegrees(obliquity) * SineOfDegrees(longitude), CosineOfDegrees(longitude));
  return {RadiansToDegrees(declination),
          std::remainder(RadiansToDegrees(ascension) - SiderealTime(days), 360)};
}

SphereRing GreyLine(GeoPoint subsolar) {
  // Two directions square to the sun and to each other span the circle.
  const auto east = VectorOf({0, subsolar.Longitude + 90});
  const auto north = VectorOf({subsolar.Latitude + 90, subsolar.Longitude});
  SphereRing ring;
  for (int degree = 0; degree < 360; degree += 10) {
    const double x = SineOfDegrees(degree);
    const double y = CosineOfDegrees(degree);
    ring.push_back({x * east.X + y * north.X, x * east.Y + y * north.Y, x * east.Z + y * north.Z});
  }
  return ring;
}

}  // namespace brelwin
