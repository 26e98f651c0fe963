// Paints the map: sea, land, night and rings, and above them skimmers and activations.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <vector>

#include "places/map_contents.h"
#include "qt/window/map_camera.h"
#include "qt/window/map_picture.h"

namespace brelwin {

// All from the palette: they follow the desktop's light or dark theme.
struct MapColors {
  explicit MapColors(const QPalette& palette);

  QColor Sea;
  QColor Land;
  QColor Coast;
  QColor Night;  // a veil over both
  QColor Rings;
  QColor Text;
  QColor Mark;      // the selected activation and who hears it
  QColor MarkText;  // on Mark
};

class MapPainter {
 public:
  MapPainter(QPainter& painter, const MapPicture& picture, const MapCamera& camera, const QPalette& palette);

  void Paint(const MapContents& contents);

 private:
  void PaintEarth();
  void PaintRings();
  void PaintRingLabels();
  void PaintSkimmers(const MapContents& contents);
  void PaintActivation(const MapActivation& activation);
  void PaintSelected(const MapActivation& activation);
  void PaintGlyph(QPointF pixel, const QString& glyph, bool isSelected);
  void PaintLabel(const QRectF& area, const QString& text, bool isSelected);
  QRectF LabelArea(QPointF pixel, const QString& text) const;
  void SetLine(const QColor& color, double width);
  QPointF PixelOf(GeoPoint place) const;

  QPainter& painter_;
  const MapPicture& picture_;
  const MapCamera& camera_;
  MapColors colors_;
  std::vector<QRectF> taken_;  // by labels: one that would cover another is left out
};

}  // namespace brelwin
