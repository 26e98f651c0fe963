#include "qt/window/map_picture.h"

#include <cstdlib>

#include "places/coast.h"
#include "places/map_projection.h"
#include "places/sun.h"

namespace brelwin {
namespace {

constexpr GeoPoint NorthPole{90, 0};
constexpr std::int64_t NightStaysForSeconds = 60;

QPointF OnScreen(MapPoint point) {
  return {point.East, -point.North};
}

QPolygonF Polygon(const std::vector<MapPoint>& ring) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(ring.size()));
  for (const auto& point : ring) polygon << OnScreen(point);
  return polygon;
}

QPainterPath PathOf(const MapArea& area) {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  for (const auto& ring : area.Rings) {
    path.addPolygon(Polygon(ring));
    path.closeSubpath();
  }
  return path;
}

}  // namespace

void MapPicture::Update(const MapContents& contents) {
  const bool isMoved = !isMade_ || contents.Center != projection_.Center();
  if (isMoved) {
    projection_ = MapProjection(contents.Center);
    land_ = PathOf(AreaOnMap(projection_, Coast(), VectorOf(NorthPole)));
  }
  const auto age = std::llabs(contents.UtcNow.Seconds - nightTime_.Seconds);
  if (isMoved || age >= NightStaysForSeconds) {
    const auto sun = SubsolarPoint(contents.UtcNow);
    night_ = PathOf(AreaOnMap(projection_, {GreyLine(sun)}, VectorOf(sun)));
    nightTime_ = contents.UtcNow;
  }
  isMade_ = true;
}

QPainterPath MapPicture::Way(GeoPoint from, GeoPoint to) const {
  QPainterPath path;
  path.addPolygon(Polygon(WayOnMap(projection_, from, to)));
  return path;
}

}  // namespace brelwin
