#include "qt/window/spot_list_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTest>
#include <random>
#include <string>

#include "wait_until.h"

namespace brelwin {
namespace {

class SpotListViewTest : public ::testing::Test {
 protected:
  SpotListViewTest() : watch_(view_.Follow(control_)) {
    view_.resize(600, 300);
    view_.show();
  }

  // Puts a batch in front, trims the list and refreshes it as the program does.
  void Receive(int count, std::size_t maximum = 200) {
    for (; count > 0; --count) {
      auto spot = std::make_shared<Spot>();
      spot->ID = "spot " + std::to_string(++received_);
      spots_.insert(spots_.begin(), std::move(spot));
    }
    if (spots_.size() > maximum) spots_.resize(maximum);
    control_.Text = std::string();
    queue_.DoEvents();
    queue_.DoEvents();
    std::string text;
    for (const auto& spot : spots_) text += spot->ID + std::string(150, '.') + "\r\n";
    control_.Spots = spots_;
    control_.Text = text;
    queue_.DoEvents();
  }

  QString TopLine() { return view_.indexAt({0, 0}).data().toString().section('.', 0, 0); }

  QStringList Selected() {
    QStringList lines;
    for (const auto& index : view_.selectionModel()->selectedIndexes())
      lines << index.data().toString().section('.', 0, 0);
    lines.sort();
    return lines;
  }

  void Press(QKeySequence::StandardKey key) {
    for (auto* action : view_.actions())
      if (action->shortcut() == QKeySequence(key)) action->trigger();
  }

  ControlList controls_;
  SpotListBox control_{controls_, "txtSPOTList"};
  std::vector<std::shared_ptr<const Spot>> spots_;
  int received_ = 0;
  QtEventQueue queue_;
  SpotListView view_;
  Watch watch_;
};

// The lines are changed where they differ; whatever they were, they become the new ones.
TEST(SpotListModel, ShowsTheNewLinesWhateverItShowedBefore) {
  std::mt19937 random(7);
  SpotListModel model;
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (auto lines = random() % 12; lines > 0; --lines) text.append(1, "abcde"[random() % 5]).append("\r\n");
    model.ShowText(text, {});
    std::string shown;
    for (int row = 0; row < model.rowCount(); ++row)
      shown += model.index(row, 0).data().toString().toStdString() + "\r\n";
    ASSERT_EQ(shown, text);
  }
}

TEST_F(SpotListViewTest, TheReaderKeepsPlaceAndSelectionWhileBatchesArrive) {
  Receive(150);
  view_.scrollTo(view_.model()->index(40, 0), QListView::PositionAtTop);
  view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + 5);  // in the middle of a line
  view_.horizontalScrollBar()->setValue(120);
  for (const int row : {42, 45, 120})
    view_.selectionModel()->select(view_.model()->index(row, 0), QItemSelectionModel::Select);
  const auto top = TopLine();
  const auto offset = view_.visualRect(view_.indexAt({0, 0})).top();
  const auto selected = Selected();
  ASSERT_EQ(selected.size(), 3);
  for (const int batch : {1, 7, 3, 30, 2}) Receive(batch);
  EXPECT_EQ(TopLine(), top);
  EXPECT_EQ(view_.visualRect(view_.indexAt({0, 0})).top(), offset);
  EXPECT_EQ(view_.horizontalScrollBar()->value(), 120);
  EXPECT_EQ(Selected(), selected);
}

TEST_F(SpotListViewTest, AtTheVeryTopNewLinesComeIntoView) {
  Receive(150);
  view_.setCurrentIndex(view_.model()->index(0, 0));
  Receive(4);
  EXPECT_EQ(TopLine(), "spot 154");
  EXPECT_EQ(Selected(), QStringList{"spot 150"});
}

TEST_F(SpotListViewTest, AListThatStaysEmptyIsShownEmpty) {
  Receive(3);
  control_.Spots.clear();
  control_.Text = std::string();
  EXPECT_EQ(view_.model()->rowCount(), 3);  // only the moment before the next text, so far
  EXPECT_TRUE(test::WaitUntil(queue_, [this] { return view_.model()->rowCount() == 0; }));
}

TEST_F(SpotListViewTest, ADoubleClickTellsTheSpotOfItsLineAndNothingOnOtherTexts) {
  std::vector<std::string> clicked;
  control_.DoubleClick = [&](const Spot& spot) {
    clicked.push_back(spot.ID);
    Receive(1);  // the list may change under the call
    clicked.push_back(spot.ID);
  };
  Receive(5);
  Q_EMIT view_.doubleClicked(view_.model()->index(1, 0));
  EXPECT_EQ(clicked, (std::vector<std::string>{"spot 4", "spot 4"}));
  control_.Spots.clear();
  control_.Text = "Connecting...";
  Q_EMIT view_.doubleClicked(view_.model()->index(0, 0));
  EXPECT_EQ(clicked.size(), 2u);
}

TEST_F(SpotListViewTest, OnlyTheReaderChoosesASpot) {
  std::vector<std::string> chosen;
  control_.Select = [&](const Spot& spot) { chosen.push_back(spot.ID); };
  Receive(5);
  QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
  QApplication::sendEvent(&view_, &focus);
  view_.setCurrentIndex(view_.model()->index(4, 0));
  Receive(3, 5);  // the chosen line is trimmed
  EXPECT_EQ(chosen, std::vector<std::string>{"spot 1"});
}

TEST_F(SpotListViewTest, KeysAndTheMouseChooseALineOnce) {
  std::vector<std::string> chosen;
  control_.Select = [&](const Spot& spot) { chosen.push_back(spot.ID); };
  Receive(5);
  const auto second = view_.visualRect(view_.model()->index(1, 0));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, {10, second.center().y()});
  QTest::keyClick(&view_, Qt::Key_Down);
  EXPECT_EQ(chosen, (std::vector<std::string>{"spot 4", "spot 3"}));
}

TEST_F(SpotListViewTest, CopiesTheSelectedLinesInTheOrderOfTheList) {
  Receive(5);
  for (const int row : {3, 1})
    view_.selectionModel()->select(view_.model()->index(row, 0), QItemSelectionModel::Select);
  Press(QKeySequence::Copy);
  const auto lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0], "spot 4" + QString(150, '.'));
  EXPECT_TRUE(lines[1].startsWith("spot 2."));
  Press(QKeySequence::SelectAll);
  EXPECT_EQ(Selected().size(), 5);
}

}  // namespace
}  // namespace brelwin
