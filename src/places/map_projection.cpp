#include "places/map_projection.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace brelwin {

namespace {

// At this length the line between two points is within a kilometre of the curve, at the rim too.
constexpr double LongestStepInKm = 300;

// Ends the splitting of an edge that runs through the antipode itself: 3,000 km down to 5 cm.
constexpr int MostSplits = 26;

struct Corner {
  UnitVector Place;
  MapPoint OnMap;
};

// The corners behind `from`, up to and with `to`.
void AppendEdge(const MapProjection& projection, const Corner& from, const Corner& to, int splits,
                std::vector<MapPoint>& line) {
  const double step = std::hypot(to.OnMap.East - from.OnMap.East, to.OnMap.North - from.OnMap.North);
  if (step <= LongestStepInKm || splits == 0) {
    line.push_back(to.OnMap);
    return;
  }
  const auto place = MiddleOf(from.Place, to.Place);
  const Corner middle{place, projection.Project(place)};
  AppendEdge(projection, from, middle, splits - 1, line);
  AppendEdge(projection, middle, to, splits - 1, line);
}

std::vector<MapPoint> RingOnMap(const MapProjection& projection, const SphereRing& ring) {
  std::vector<MapPoint> line;
  if (ring.empty()) return line;
  line.reserve(2 * ring.size());
  Corner from{ring.back(), projection.Project(ring.back())};
  for (const auto& place : ring) {
    const Corner to{place, projection.Project(place)};
    AppendEdge(projection, from, to, MostSplits, line);
    from = to;
  }
  return line;
}

bool CrossesEastOf(MapPoint from, MapPoint to, MapPoint point) {
  if ((from.North > point.North) == (to.North > point.North)) return false;
  const double share = (point.North - from.North) / (to.North - from.North);
  return point.East < from.East + share * (to.East - from.East);
}

bool HasOddCrossings(const std::vector<MapPoint>& ring, MapPoint point) {
  bool isOdd = false;
  for (std::size_t i = 0; i < ring.size(); ++i)
    if (CrossesEastOf(ring[i == 0 ? ring.size() - 1 : i - 1], ring[i], point)) isOdd = !isOdd;
  return isOdd;
}

// Corners and centres are round numbers, so that a corner may be the very antipode, and of the many points of
// the rim that it could be only some leave the ring whole. Half a metre beside it no corner is.
MapProjection BesideRoundNumbers(GeoPoint center) {
  return MapProjection({center.Latitude + 3.1e-6, center.Longitude + 2.3e-6});
}

}  // namespace

MapArea AreaOnMap(const MapProjection& projection, const std::vector<SphereRing>& rings,
                  const UnitVector& outside) {
  const auto drawn = BesideRoundNumbers(projection.Center());
  MapArea area;
  for (const auto& ring : rings) area.Rings.push_back(RingOnMap(drawn, ring));
  // Crossings tell two places apart. Counted from the rim they tell the antipode, which is all of the rim,
  // from any other place: a place outside that looks inside says that the antipode is inside.
  if (IsInArea(area, drawn.Project(outside))) area.Rings.push_back(CircleOnMap(MapRadiusInKm));
  return area;
}

bool IsInArea(const MapArea& area, MapPoint point) {
  return std::ranges::count_if(area.Rings, [&](const auto& ring) { return HasOddCrossings(ring, point); }) %
             2 ==
         1;
}

std::vector<MapPoint> WayOnMap(const MapProjection& projection, GeoPoint from, GeoPoint to) {
  const Corner start{VectorOf(from), projection.Project(from)};
  const Corner end{VectorOf(to), projection.Project(to)};
  std::vector<MapPoint> line{start.OnMap};
  AppendEdge(projection, start, end, MostSplits, line);
  return line;
}

std::vector<MapPoint> CircleOnMap(double radiusInKm) {
  std::vector<MapPoint> circle;
  for (int degree = 0; degree < 360; ++degree) {
    const double angle = DegreesToRadians(degree);
    circle.push_back({radiusInKm * std::sin(angle), radiusInKm * std::cos(angle)});
  }
  return circle;
}

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
