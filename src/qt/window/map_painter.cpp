#include "qt/window/map_painter.h"

#include <QFontMetricsF>
#include <algorithm>

#include "qt/ports/qt_text.h"

namespace brelwin {

namespace {

// So much of the second colour over the first.
QColor Mixed(const QColor& first, const QColor& second, double share) {
  const auto part = [share](int one, int other) { return static_cast<int>(one + share * (other - one)); };
  return {part(first.red(), second.red()), part(first.green(), second.green()),
          part(first.blue(), second.blue())};
}

QColor Veil(const QColor& sea) {
  QColor veil(Qt::black);
  veil.setAlphaF(sea.lightness() < 128 ? 0.45F : 0.16F);
  return veil;
}

}  // namespace

MapColors::MapColors(const QPalette& palette)
    : Sea(palette.color(QPalette::Base)),
      Land(Mixed(Sea, palette.color(QPalette::Text), 0.2)),
      Coast(Mixed(Sea, palette.color(QPalette::Text), 0.45)),
      Night(Veil(Sea)),
      Rings(Mixed(Sea, palette.color(QPalette::Text), 0.33)),
      Text(palette.color(QPalette::Text)),
      Mark(palette.color(QPalette::Highlight)),
      MarkText(palette.color(QPalette::HighlightedText)) {}

namespace {

constexpr int RingStepInKm = 2500;
constexpr double SkimmerRadius = 3;
constexpr double LabelGap = 3;
constexpr double SelectedWidth = 3;

}  // namespace

MapPainter::MapPainter(QPainter& painter, const MapPicture& picture, const MapCamera& camera,
                       const QPalette& palette)
    : painter_(painter), picture_(picture), camera_(camera), colors_(palette) {
  painter_.setRenderHint(QPainter::Antialiasing);
}

// The selected activation comes last, above the others, but its label has the first choice.
void MapPainter::Paint(const MapContents& contents) {
  PaintEarth();
  PaintRings();
  PaintRingLabels();
  PaintSkimmers(contents);
  const auto* selected = SelectedActivation(contents);
  if (selected != nullptr) taken_.push_back(LabelArea(PixelOf(selected->Place), ToQString(selected->Label)));
  for (const auto& activation : contents.Activations)
    if (&activation != selected) PaintActivation(activation);
  if (selected != nullptr) PaintSelected(*selected);
}

void MapPainter::PaintEarth() {
  painter_.save();
  painter_.setTransform(camera_.ToPixels(), true);
  SetLine(colors_.Coast, 1);
  painter_.setBrush(colors_.Sea);
  painter_.drawEllipse(QPointF(), MapRadiusInKm, MapRadiusInKm);
  painter_.setBrush(colors_.Land);
  painter_.drawPath(picture_.Land());
  SetLine(colors_.Rings, 1);  // a dark palette leaves little between day and night
  painter_.setBrush(colors_.Night);
  painter_.drawPath(picture_.Night());
  painter_.restore();
}

void MapPainter::PaintRings() {
  painter_.save();
  painter_.setTransform(camera_.ToPixels(), true);
  SetLine(colors_.Rings, 1);
  painter_.setBrush(Qt::NoBrush);
  for (int radius = RingStepInKm; radius < MapRadiusInKm; radius += RingStepInKm)
    painter_.drawEllipse(QPointF(), radius, radius);
  painter_.restore();
}

// Where they would lie one over the other there are none.
void MapPainter::PaintRingLabels() {
  painter_.setPen(colors_.Text);
  const auto apart = camera_.PixelOf({0, -RingStepInKm}).y() - camera_.PixelOf({}).y();
  const bool haveRoom = apart >= painter_.fontMetrics().height();
  for (int radius = RingStepInKm; haveRoom && radius < MapRadiusInKm - RingStepInKm; radius += RingStepInKm) {
    const auto pixel = camera_.PixelOf({0, static_cast<double>(-radius)});
    painter_.drawText(pixel + QPointF(LabelGap, -LabelGap), QString::number(radius) + " km");
  }
  SetLine(colors_.Text, 1);
  const auto center = camera_.PixelOf({});
  painter_.drawLine(center - QPointF(5, 0), center + QPointF(5, 0));
  painter_.drawLine(center - QPointF(0, 5), center + QPointF(0, 5));
}

void MapPainter::PaintSkimmers(const MapContents& contents) {
  const auto* selected = SelectedActivation(contents);
  if (selected == nullptr) return;
  SetLine(colors_.Mark, 1.5);
  for (const auto& skimmer : contents.Skimmers) {
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPath(camera_.ToPixels().map(picture_.Way(skimmer.Place, selected->Place)));
    painter_.setBrush(colors_.Mark);
    painter_.drawEllipse(PixelOf(skimmer.Place), SkimmerRadius, SkimmerRadius);
  }
}

// A label that has no room is left out.
void MapPainter::PaintActivation(const MapActivation& activation) {
  const auto pixel = PixelOf(activation.Place);
  PaintGlyph(pixel, ToQString(activation.Glyph), false);
  const auto text = ToQString(activation.Label);
  const auto area = LabelArea(pixel, text);
  if (std::ranges::any_of(taken_, [&](const QRectF& other) { return other.intersects(area); })) return;
  taken_.push_back(area);
  PaintLabel(area, text, false);
}

void MapPainter::PaintSelected(const MapActivation& activation) {
  const auto pixel = PixelOf(activation.Place);
  const auto text = ToQString(activation.Label);
  PaintGlyph(pixel, ToQString(activation.Glyph), true);
  PaintLabel(LabelArea(pixel, text), text, true);
}

// On a small round ground, so that land, night and lines leave it legible.
void MapPainter::PaintGlyph(QPointF pixel, const QString& glyph, bool isSelected) {
  const double radius = QFontMetricsF(painter_.font()).height() / 2;
  SetLine(isSelected ? colors_.Mark : colors_.Text, isSelected ? SelectedWidth : 1);
  painter_.setBrush(colors_.Sea);
  painter_.drawEllipse(pixel, radius, radius);
  painter_.setPen(colors_.Text);
  painter_.drawText(QRectF(pixel.x() - radius, pixel.y() - radius, 2 * radius, 2 * radius), Qt::AlignCenter,
                    glyph);
}

void MapPainter::PaintLabel(const QRectF& area, const QString& text, bool isSelected) {
  auto ground = isSelected ? colors_.Mark : colors_.Sea;
  ground.setAlphaF(isSelected ? 1.0F : 0.75F);
  painter_.fillRect(area, ground);
  painter_.setPen(isSelected ? colors_.MarkText : colors_.Text);
  painter_.drawText(area, Qt::AlignCenter, text);
}

// At the right of the glyph, or at its left where the window ends.
QRectF MapPainter::LabelArea(QPointF pixel, const QString& text) const {
  const QFontMetricsF metrics(painter_.font());
  const double distance = metrics.height() / 2 + LabelGap;
  const double width = metrics.horizontalAdvance(text) + 2 * LabelGap;
  const bool fits = pixel.x() + distance + width <= 2 * camera_.Middle().x();
  const double left = fits ? pixel.x() + distance : pixel.x() - distance - width;
  return {left, pixel.y() - metrics.height() / 2, width, metrics.height()};
}

// As wide in pixels at every zoom.
void MapPainter::SetLine(const QColor& color, double width) {
  QPen pen(color, width);
  pen.setCosmetic(true);
  painter_.setPen(pen);
}

QPointF MapPainter::PixelOf(GeoPoint place) const {
  return camera_.PixelOf(picture_.Projection().Project(place));
}

}  // namespace brelwin
