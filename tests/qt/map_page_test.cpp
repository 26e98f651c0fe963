// The pages around the board: the map, the bands over time, and what they need to know.
#include "qt/window/map_page.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "board_day.h"
#include "qt/window/bands_box.h"
#include "qt/window/bind_controls.h"
#include "qt/window/pages.h"

namespace brelwin {
namespace {

class MapPageTest : public ::testing::Test {
 protected:
  MapPageTest() {
    test::TakeDay(host_, keeper_, 10);
    keeper_.Save();
    host_.Disk.Put("/list.csv",
                   "SummitCode,SummitName,Longitude,Latitude\nG/LD-003,Helvellyn,-3.0,54.5\n"
                   "W6/CT-011,Mount Wilson,-118.1,34.2\n");
    around_.Start(keeper_.Board());
    around_.ImportSummits("/list.csv");
    page_.resize(800, 700);
    page_.show();
  }

  template <class Widget>
  Widget& Get(const char* name) {
    auto* widget = page_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return *widget;
  }

  test::TestHost host_;
  BoardKeeper keeper_{host_.World};
  PlacesTab tab_;
  Surroundings around_{host_.World, tab_};
  RowNumber selected_ = 0;
  int asked_ = 0;
  MapPage page_{{keeper_, around_, host_.Store, [this] { return UTCNow(host_.Time); },
                 [this](RowNumber row) { selected_ = row; }, [this] { ++asked_; }}};
};

TEST_F(MapPageTest, AsksForThePlaceAndThenDrawsAroundIt) {
  auto& button = Get<QPushButton>("mapSetPlace");
  EXPECT_TRUE(button.isVisible());
  button.click();
  EXPECT_EQ(asked_, 1);
  tab_.txtMyPlace.Text = std::string("IN80dk");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Get<MapView>("MapView").isVisible(); }, 2000));
  EXPECT_TRUE(Get<QLabel>("mapWords").text().contains("without a place"));
  QTest::keyClick(&Get<MapView>("MapView"), Qt::Key_PageDown);
  ASSERT_NE(selected_, 0);
  EXPECT_TRUE(Get<MapView>("MapView").HoverText().contains(
      QString::fromStdString(keeper_.Board().Find(selected_)->Who.Station)));
}

TEST_F(MapPageTest, UnfoldsTheBandsAndReadsThemByKeys) {
  auto& picture = Get<BandsPicture>("bandsPicture");
  EXPECT_FALSE(picture.isVisible());
  Get<QToolButton>("bandsFold").click();
  const auto described = [&](const char* words) {
    return QTest::qWaitFor([&] { return picture.accessibleDescription().contains(words); }, 3000);
  };
  EXPECT_TRUE(described("30m: 8 by skimmers, 0 on Sotawatch"));
  QTest::keyClick(&picture, Qt::Key_Down);
  EXPECT_TRUE(described("40m, 12:18 to 12:33 UTC: "));
  EXPECT_EQ(picture.WordsAt({picture.width() / 2.0, 5.0}), "");
}

TEST(PlacesPageTest, HasAWidgetForEveryControl) {
  PlacesTab tab;
  const std::unique_ptr<QWidget> page(MakePlacesPage(tab, [](const std::string&) {}));
  ControlBindings bindings(*page, [](QWidget&) {});
  bindings.Add(tab.Controls);
  EXPECT_EQ(bindings.WithoutWidget(), QStringList());
}

}  // namespace
}  // namespace brelwin
