// Which part of the map a window shows, and how large: from kilometres to pixels and back.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <QTransform>

#include "places/map_projection.h"

namespace brelwin {

class MapCamera {
 public:
  // 1 shows the whole earth; at the most a thousand kilometres fill a small window.
  static constexpr double MostZoom = 40;

  // The size of the window; what is in its middle stays there.
  void Resize(QSizeF pixels) { size_ = pixels; }

  // Zooms by the factor, and what is under the pixel stays there.
  void ZoomAt(QPointF pixel, double factor);

  // Moves the map with the hand that holds it, by pixels; its disc does not leave the window.
  void Drag(QPointF pixels);

  // The whole earth.
  void Reset();

  double Zoom() const { return zoom_; }
  QPointF Middle() const { return {size_.width() / 2, size_.height() / 2}; }

  // From kilometres, east and south of the centre, to pixels.
  QTransform ToPixels() const;

  QPointF PixelOf(MapPoint point) const { return ToPixels().map(QPointF(point.East, -point.North)); }
  MapPoint PointAt(QPointF pixel) const;

 private:
  double PixelsPerKm() const;

  QSizeF size_{1, 1};
  double zoom_ = 1;
  QPointF middle_;  // what is in the window's middle, in kilometres east and south
};

}  // namespace brelwin
