// The map's colours, all from the palette: they follow the desktop's light or dark theme.
#pragma once

#include <QColor>
#include <QPalette>

namespace brelwin {

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

}  // namespace brelwin
