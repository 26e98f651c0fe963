// The parts of the map that change seldom, made ready for painting: coast, night, rings, great circles.
#pragma once

#include <QPainterPath>

#include "places/map_contents.h"
#include "places/map_projection.h"

namespace brelwin {

// Paths are in kilometres, east and south of the centre.
class MapPicture {
 public:
  // Nothing is made anew that shows what it showed before: land stays with the centre, night for a minute.
  void Update(const MapContents& contents);

  const MapProjection& Projection() const { return projection_; }
  const QPainterPath& Land() const { return land_; }
  const QPainterPath& Night() const { return night_; }

  // The shortest way between two places, which on this map is a curve unless it meets the centre.
  QPainterPath Way(GeoPoint from, GeoPoint to) const;

 private:
  MapProjection projection_{GeoPoint{}};
  bool isMade_ = false;
  DateTime nightTime_;
  QPainterPath land_;
  QPainterPath night_;
};

}  // namespace brelwin
