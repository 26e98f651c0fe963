// The map of live activations around the operator, by mouse and by keyboard.
#pragma once

#include <QWidget>
#include <optional>

#include "places/map_contents.h"
#include "qt/window/map_camera.h"
#include "qt/window/map_picture.h"

namespace brelwin {

class MapView final : public QWidget {
  Q_OBJECT

 public:
  explicit MapView(QWidget* parent = nullptr);

  // Shows this from here on; zoom and place stay unless the centre is another one.
  void Show(const MapContents& contents);

  // What is under the pointer, in words: an activation, a skimmer, or the place itself with its distance and
  // both bearings. Without the pointer on the map it is the selected activation; empty for none.
  QString HoverText() const;

  QSize sizeHint() const override { return {480, 480}; }
  QSize minimumSizeHint() const override { return {160, 160}; }

 Q_SIGNALS:
  // The user chose an activation, by click or key. The map marks it when it is shown as selected.
  void ActivationChosen(const QString& id);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool MoveByKey(int key);
  void Choose(const MapActivation* activation);
  template <typename Item>
  const Item* NearestOf(const std::vector<Item>& items, QPointF pixel) const;
  double PixelsTo(GeoPoint place, QPointF pixel) const;
  int HoverTextHeight() const;
  void PaintHoverText(QPainter& painter) const;

  MapContents contents_;
  MapPicture picture_;
  MapCamera camera_;
  std::optional<QPointF> pointer_;
  std::optional<QPointF> pressed_;  // where the button went down; from there a drag is measured
  bool isDragged_ = false;
};

}  // namespace brelwin
