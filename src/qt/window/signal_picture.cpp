#include "qt/window/signal_picture.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "board/tuning.h"
#include "qt/ports/qt_text.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr int Blank = 6;                 // around the picture, in pixels
constexpr int MarkSize = 6;              // of a point
constexpr int LeastDB = 30;              // that the scale reaches
constexpr int StepInDB = 10;             // between two lines of the scale
constexpr std::int64_t LeastTime = 600;  // seconds that the picture spans

using Bands = std::map<float, std::vector<SignalPoint>>;

Bands ByBand(const std::vector<SignalPoint>& points) {
  Bands bands;
  for (const auto& point : points) bands[point.BandInMhz].push_back(point);
  return bands;
}

std::string BandWords(float band) {
  const auto name = NameOfBand(double{band});
  return name.empty() ? SingleText(band) + " MHz" : std::string(name);
}

std::string LevelWords(const SignalPoint& point) {
  return std::to_string(point.Signal) + " dB at " + ClockText(point.Minute);
}

// Seen apart in light and dark, by those who do not see colours by the marks.
QColor ColorOf(std::size_t band, bool isDark) {
  constexpr std::array hues{210, 25, 130, 320, 50, 270};
  return QColor::fromHsv(hues[band % hues.size()], isDark ? 130 : 255, isDark ? 255 : 165);
}

void DrawMark(QPainter& painter, QPointF at, std::size_t band) {
  constexpr double half = MarkSize / 2.0;
  const QRectF around(at.x() - half, at.y() - half, MarkSize, MarkSize);
  switch (band % 4) {
    case 0: return painter.drawEllipse(around);
    case 1: return painter.drawRect(around);
    case 2:
      painter.drawLine(around.topLeft(), around.bottomRight());
      return painter.drawLine(around.topRight(), around.bottomLeft());
    default: {
      const std::array corners{QPointF(at.x(), around.top()), around.bottomRight(), around.bottomLeft()};
      painter.drawPolygon(corners.data(), static_cast<int>(corners.size()));
    }
  }
}

// Where times and levels are in the picture.
struct Scale {
  QRectF Area;
  std::int64_t From = 0;
  std::int64_t Span = LeastTime;
  int Top = LeastDB;

  double Y(int level) const { return Area.bottom() - Area.height() * std::max(0, level) / Top; }
  QPointF At(const SignalPoint& point) const {
    const auto gone = static_cast<double>(point.Minute.Seconds - From) / static_cast<double>(Span);
    return {Area.left() + Area.width() * gone, Y(point.Signal)};
  }
};

Scale ScaleOf(const std::vector<SignalPoint>& points, const QRect& room, const QFontMetrics& metrics) {
  const auto best = std::ranges::max(points, {}, &SignalPoint::Signal).Signal;
  const auto from = std::ranges::min(points, {}, &SignalPoint::Minute).Minute.Seconds;
  const auto to = std::ranges::max(points, {}, &SignalPoint::Minute).Minute.Seconds;
  const int left = metrics.horizontalAdvance("00 dB") + 2 * Blank;
  const auto area = room.adjusted(left, metrics.height() + 2 * Blank, -2 * Blank, -metrics.height() - Blank);
  const auto top = std::max(LeastDB, (best / StepInDB + 1) * StepInDB);
  return {area, from, std::max(LeastTime, to - from), top};
}

void DrawScale(QPainter& painter, const Scale& scale, const QPalette& palette) {
  const auto height = painter.fontMetrics().height();
  auto faint = palette.color(QPalette::Text);
  faint.setAlphaF(0.25F);
  for (int level = 0; level <= scale.Top; level += StepInDB) {
    const auto y = scale.Y(level);
    painter.setPen(faint);
    painter.drawLine(QPointF(scale.Area.left(), y), QPointF(scale.Area.right(), y));
    painter.setPen(palette.color(QPalette::Text));
    if (level % (2 * StepInDB) != 0) continue;
    const QRectF room(0, y - height / 2.0, scale.Area.left() - Blank, height);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, QString::number(level) + " dB");
  }
  const QRectF under(scale.Area.left(), scale.Area.bottom() + 2, scale.Area.width(), height);
  painter.drawText(under, Qt::AlignLeft, ToQString(ClockText({scale.From})));
  painter.drawText(under, Qt::AlignRight, ToQString(ClockText({scale.From + scale.Span}) + " UTC"));
}

// The bands' marks with their names, over the picture.
void DrawLegend(QPainter& painter, const Bands& bands, const Scale& scale, const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  auto x = scale.Area.left();
  std::size_t number = 0;
  for (const auto& [band, points] : bands) {
    const auto color = ColorOf(number, isDark);
    const auto name = ToQString(BandWords(band));
    const auto height = painter.fontMetrics().height();
    painter.setPen(color);
    painter.setBrush(color);
    DrawMark(painter, {x + MarkSize / 2.0, Blank + height / 2.0}, number++);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(QPointF(x + MarkSize + 4, Blank + painter.fontMetrics().ascent()), name);
    x += MarkSize + 4 + painter.fontMetrics().horizontalAdvance(name) + 2 * Blank;
  }
}

void DrawBands(QPainter& painter, const Bands& bands, const Scale& scale, const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  std::size_t number = 0;
  for (const auto& [band, points] : bands) {
    const auto color = ColorOf(number, isDark);
    painter.setPen(color);
    painter.setBrush(color);
    for (const auto& point : points) DrawMark(painter, scale.At(point), number);
    ++number;
  }
}

}  // namespace

std::string SignalWords(const std::vector<SignalPoint>& points) {
  std::string words;
  for (const auto& [band, ofBand] : ByBand(points)) {
    const auto best = std::ranges::max(ofBand, {}, &SignalPoint::Signal);
    const auto count = std::to_string(ofBand.size()) + (ofBand.size() == 1 ? " minute" : " minutes");
    words += (words.empty() ? "" : "; ") + BandWords(band) + ": " + count + ", best " + LevelWords(best) +
             ", last " + LevelWords(ofBand.back());
  }
  return words.empty() ? "not heard by skimmers" : words;
}

SignalPicture::SignalPicture() {
  setObjectName("signalPicture");
  setAccessibleName("Signal over noise by time and band");
  setFrameStyle(StyledPanel | Sunken);
  setFocusPolicy(Qt::TabFocus);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void SignalPicture::Show(std::vector<SignalPoint> points) {
  wordsWithoutPoints_ = "Not heard by skimmers";
  const auto words = ToQString(SignalWords(points));
  Put(std::move(points), words);
}

void SignalPicture::ShowNothing() {
  wordsWithoutPoints_.clear();
  Put({}, {});
}

void SignalPicture::Put(std::vector<SignalPoint> points, const QString& words) {
  points_ = std::move(points);
  setAccessibleDescription(words);
  setToolTip(QString(words).replace("; ", "\n"));
  update();
}

void SignalPicture::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QStylePainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (points_.empty()) {
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, wordsWithoutPoints_);
  } else {
    const auto scale = ScaleOf(points_, rect(), fontMetrics());
    const auto bands = ByBand(points_);
    DrawScale(painter, scale, palette());
    DrawLegend(painter, bands, scale, palette());
    DrawBands(painter, bands, scale, palette());
  }
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  focus.rect = rect().adjusted(1, 1, -1, -1);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

}  // namespace brelwin
