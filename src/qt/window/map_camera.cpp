#include "qt/window/map_camera.h"

#include <algorithm>
#include <cmath>

namespace brelwin {
namespace {

constexpr double MarginInPixels = 4;

}  // namespace

void MapCamera::ZoomAt(QPointF pixel, double factor) {
  const auto before = ToPixels().inverted().map(pixel);
  zoom_ = std::clamp(zoom_ * factor, 1.0, MostZoom);
  if (zoom_ == 1) return Reset();
  const auto after = ToPixels().inverted().map(pixel);
  Drag((after - before) * PixelsPerKm());
}

void MapCamera::Drag(QPointF pixels) {
  middle_ -= pixels / PixelsPerKm();
  const double distance = std::hypot(middle_.x(), middle_.y());
  if (distance > MapRadiusInKm) middle_ *= MapRadiusInKm / distance;
}

void MapCamera::Reset() {
  zoom_ = 1;
  middle_ = {};
}

QTransform MapCamera::ToPixels() const {
  const double scale = PixelsPerKm();
  const auto middle = Middle();
  return {scale, 0, 0, scale, middle.x() - scale * middle_.x(), middle.y() - scale * middle_.y()};
}

MapPoint MapCamera::PointAt(QPointF pixel) const {
  const auto point = ToPixels().inverted().map(pixel);
  return {point.x(), -point.y()};
}

double MapCamera::PixelsPerKm() const {
  const double side = std::max(std::min(size_.width(), size_.height()) - 2 * MarginInPixels, 1.0);
  return zoom_ * side / (2 * MapRadiusInKm);
}

}  // namespace brelwin
