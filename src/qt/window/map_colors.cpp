#include "qt/window/map_colors.h"

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

}  // namespace brelwin
