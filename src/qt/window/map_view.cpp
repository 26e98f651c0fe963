#include "qt/window/map_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "qt/ports/qt_text.h"
#include "qt/window/map_painter.h"

namespace brelwin {
namespace {

constexpr double ZoomStep = 1.25;
constexpr double WheelNotch = 120;
constexpr double KeyStepInPixels = 40;
constexpr double ReachInPixels = 12;

constexpr const char* Keys =
    " Arrow keys move the map, plus and minus zoom, 0 shows the whole earth, Page Down and Page Up choose "
    "the "
    "next and the previous activation.";

}  // namespace

MapView::MapView(QWidget* parent) : QWidget(parent) {
  setObjectName("MapView");
  setAccessibleName("Map of activations");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  Show({});
}

void MapView::Show(const MapContents& contents) {
  if (contents.Center != contents_.Center) camera_.Reset();
  contents_ = contents;
  picture_.Update(contents_);
  setAccessibleDescription(ToQString(MapWords(contents_)) + Keys);
  update();
}

double MapView::PixelsTo(GeoPoint place, QPointF pixel) const {
  const auto way = camera_.PixelOf(picture_.Projection().Project(place)) - pixel;
  return std::hypot(way.x(), way.y());
}

// The nearest one within reach.
template <typename Item>
const Item* MapView::NearestOf(const std::vector<Item>& items, QPointF pixel) const {
  const auto distance = [&](const Item& item) { return PixelsTo(item.Place, pixel); };
  const auto nearest = std::ranges::min_element(items, {}, distance);
  return nearest != items.end() && distance(*nearest) <= ReachInPixels ? &*nearest : nullptr;
}

QString MapView::HoverText() const {
  const auto* selected = SelectedActivation(contents_);
  if (!pointer_) return selected == nullptr ? QString() : ToQString(ActivationWords(contents_, *selected));
  if (const auto* activation = NearestOf(contents_.Activations, *pointer_))
    return ToQString(ActivationWords(contents_, *activation));
  if (const auto* skimmer = NearestOf(contents_.Skimmers, *pointer_))
    return ToQString(SkimmerWords(contents_, *skimmer));
  const auto place = picture_.Projection().PlaceAt(camera_.PointAt(*pointer_));
  return place ? ToQString(PlaceWords(contents_, *place)) : QString();
}

bool MapView::event(QEvent* event) {
  if (event->type() == QEvent::Leave) {
    pointer_.reset();
    update();
  }
  return QWidget::event(event);
}

void MapView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  MapPainter(painter, picture_, camera_, palette()).Paint(contents_);
  PaintHoverText(painter);
  if (!hasFocus()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

// Below the map, on a ground of its own: a map that is zoomed reaches beneath it.
void MapView::PaintHoverText(QPainter& painter) const {
  const auto text = HoverText();
  if (text.isEmpty()) return;
  const auto metrics = fontMetrics();
  const QRect area(0, height() - HoverTextHeight(), width(), HoverTextHeight());
  painter.fillRect(area, palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::WindowText));
  const auto inside = area.adjusted(6, 0, -6, 0);
  painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(text, Qt::ElideRight, inside.width()));
}

void MapView::resizeEvent(QResizeEvent* /*event*/) {
  camera_.Resize(QSizeF(width(), height() - HoverTextHeight()));
}

int MapView::HoverTextHeight() const {
  return fontMetrics().height() + 6;
}

void MapView::wheelEvent(QWheelEvent* event) {
  camera_.ZoomAt(event->position(), std::pow(ZoomStep, event->angleDelta().y() / WheelNotch));
  update();
  event->accept();
}

void MapView::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  if (!isPlain || !MoveByKey(event->key())) return QWidget::keyPressEvent(event);
  update();
}

// False for a key that means nothing here.
bool MapView::MoveByKey(int key) {
  switch (key) {
    case Qt::Key_Left: camera_.Drag({KeyStepInPixels, 0}); return true;
    case Qt::Key_Right: camera_.Drag({-KeyStepInPixels, 0}); return true;
    case Qt::Key_Up: camera_.Drag({0, KeyStepInPixels}); return true;
    case Qt::Key_Down: camera_.Drag({0, -KeyStepInPixels}); return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: camera_.ZoomAt(camera_.Middle(), ZoomStep); return true;
    case Qt::Key_Minus: camera_.ZoomAt(camera_.Middle(), 1 / ZoomStep); return true;
    case Qt::Key_0:
    case Qt::Key_Home: camera_.Reset(); return true;
    case Qt::Key_PageDown: Choose(NextActivation(contents_, 1)); return true;
    case Qt::Key_PageUp: Choose(NextActivation(contents_, -1)); return true;
    default: return false;
  }
}

void MapView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  pressed_ = event->position();
  isDragged_ = false;
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position();
  if (pressed_) {
    const auto step = event->position() - *pressed_;
    isDragged_ = isDragged_ || step.manhattanLength() >= QApplication::startDragDistance();
    if (isDragged_) {
      camera_.Drag(step);
      pressed_ = event->position();
    }
  }
  update();
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mouseReleaseEvent(event);
  if (pressed_ && !isDragged_) Choose(NearestOf(contents_.Activations, event->position()));
  pressed_.reset();
}

void MapView::Choose(const MapActivation* activation) {
  if (activation != nullptr) Q_EMIT ActivationChosen(ToQString(activation->Id));
}

}  // namespace brelwin
