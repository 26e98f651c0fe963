// The map by mouse and keyboard, and what it says.
#include "qt/window/map_view.h"

#include <gtest/gtest.h>

#include <QTest>
#include <cmath>

namespace brelwin {
namespace {

MapContents TwoActivations() {
  return {.Center = {40, -4},
          .UtcNow = {1795694400},  // 26 November 2026, 12:00
          .Activations = {{"1", {54.5, -3}, "●", "heard", "G4ABC/P on G/LD-003"},
                          {"2", {39.5, -105}, "○", "due", "W0ABC on W0C/FR-001"}},
          .SelectedId = "2",
          .Skimmers = {{"RBN1AA", {51, 7}}}};
}

class MapViewTest : public ::testing::Test {
 protected:
  MapViewTest() {
    view_.resize(600, 600 + view_.fontMetrics().height() + 6);  // a line of text below the map
    view_.Show(TwoActivations());
    view_.show();
    QObject::connect(&view_, &MapView::ActivationChosen, [this](const QString& id) { chosen_ << id; });
  }

  // The pixel of a place, by what the map itself says under the pointer: north is up, 20,015 km are 296
  // pixels.
  static QPoint PixelAt(double eastInKm, double northInKm) {
    const double scale = 296 / MapRadiusInKm;
    return {300 + static_cast<int>(std::lround(eastInKm * scale)),
            300 - static_cast<int>(std::lround(northInKm * scale))};
  }

  void Mouse(QEvent::Type type, QPoint pixel, Qt::MouseButton button = Qt::NoButton) {
    QMouseEvent event(type, pixel, view_.mapToGlobal(pixel), button, button, {});
    QApplication::sendEvent(&view_, &event);
  }

  std::string TextAt(QPoint pixel) {
    Mouse(QEvent::MouseMove, pixel);
    return view_.HoverText().toStdString();
  }

  MapView view_;
  QStringList chosen_;
};

// G/LD-003 is 1,614 km to the north.
TEST_F(MapViewTest, SaysWhatIsUnderThePointer) {
  EXPECT_EQ(TextAt(PixelAt(65, 1614)),
            "heard, G4ABC/P on G/LD-003, IO84mm, 1614 km at 2°, long path 38416 km at 182°");
  EXPECT_EQ(TextAt(PixelAt(0, -10000)), "IE80aa, 10008 km at 180°, long path 30023 km at 0°");
  EXPECT_EQ(TextAt({2, 2}), "");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&view_, &leave);
  EXPECT_TRUE(view_.HoverText().startsWith("due, W0ABC"));
}

TEST_F(MapViewTest, IsReadAndUsedWithoutAMouse) {
  EXPECT_EQ(view_.accessibleName(), "Map of activations");
  EXPECT_TRUE(view_.accessibleDescription().startsWith("Centre IN80aa. 2 activations. Selected: due, W0ABC"))
      << view_.accessibleDescription().toStdString();
  EXPECT_TRUE(view_.accessibleDescription().contains("heard by 1 skimmer."));
  for (const auto key : {Qt::Key_PageDown, Qt::Key_PageUp}) QTest::keyClick(&view_, key);
  QTest::mouseClick(&view_, Qt::LeftButton, {}, PixelAt(65, 1614));
  EXPECT_EQ(chosen_, (QStringList{"1", "1", "1"}));
}

// What is under the pointer stays there while the wheel turns; zoomed, the arrow keys move the map; 0 undoes
// all.
TEST_F(MapViewTest, ZoomsAndMoves) {
  const auto pixel = PixelAt(3000, 2000);
  const auto before = TextAt(pixel);
  QWheelEvent wheel(pixel, pixel, {}, {0, 600}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&view_, &wheel);
  EXPECT_EQ(TextAt(pixel), before);
  QTest::keyClick(&view_, Qt::Key_Left);
  EXPECT_NE(TextAt(pixel), before);
  Mouse(QEvent::MouseButtonPress, pixel, Qt::LeftButton);
  Mouse(QEvent::MouseMove, pixel + QPoint(-40, 0));
  Mouse(QEvent::MouseButtonRelease, pixel + QPoint(-40, 0), Qt::LeftButton);
  EXPECT_EQ(TextAt(pixel), before);
  EXPECT_TRUE(chosen_.empty());
  for (const auto key : {Qt::Key_Plus, Qt::Key_Down, Qt::Key_0}) QTest::keyClick(&view_, key);
  EXPECT_EQ(TextAt(pixel), before);
}

}  // namespace
}  // namespace brelwin
