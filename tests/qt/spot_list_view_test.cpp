#include "qt/window/spot_list_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <random>
#include <string>

#include "qt/ports/qt_event_queue.h"
#include "qt/window/pages.h"
#include "spots/spot_text.h"

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
      spot->ID = spot->Station = "spot " + std::to_string(++received_);
      spots_.insert(spots_.begin(), std::move(spot));
    }
    if (spots_.size() > maximum) spots_.resize(maximum);
    Refresh();
  }

  void Refresh() {
    control_.Contents = std::string();
    queue_.DoEvents();
    queue_.DoEvents();
    control_.Contents = spots_;
    queue_.DoEvents();
  }

  static QString StationOf(const QModelIndex& index) { return index.data().toString().mid(7, 12).trimmed(); }

  QString TopLine() { return StationOf(view_.indexAt({0, 0})); }

  QStringList Selected() {
    QStringList lines;
    for (const auto& index : view_.selectionModel()->selectedIndexes()) lines << StationOf(index);
    lines.sort();
    return lines;
  }

  void Press(QKeySequence::StandardKey key) {
    for (auto* action : view_.actions())
      if (action->shortcut() == QKeySequence(key)) action->trigger();
  }

  ControlList controls_;
  SpotListBox control_{controls_, "txtSPOTList"};
  SpotRows spots_;
  int received_ = 0;
  QtEventQueue queue_;
  SpotListView view_;
  Watch watch_;
};

// The rows are changed where they differ; whatever they were, they become the new ones, and a row that stays
// is still that of its spot, or of the one that has taken its ID over.
TEST(SpotListModel, ShowsTheNewSpotsWhateverItShowedBefore) {
  std::mt19937 random(7);
  SpotRows known;
  for (int i = 0; i < 12; ++i) {
    Spot spot;
    spot.ID = std::string(1, "abcdef"[i % 6]);
    known.push_back(std::make_shared<Spot>(spot));
  }
  SpotListModel model;
  for (int round = 0; round < 2000; ++round) {
    SpotRows rows(random() % 12);
    for (auto& row : rows) row = known[random() % known.size()];
    std::vector<std::pair<QPersistentModelIndex, std::string>> before;
    for (int row = 0; row < model.rowCount(); ++row)
      before.emplace_back(model.index(row), model.SpotAt(row)->ID);
    model.ShowSpots(rows);
    ASSERT_EQ(model.rowCount(), static_cast<int>(rows.size()));
    for (int row = 0; row < model.rowCount(); ++row)
      ASSERT_EQ(model.SpotAt(row), rows[static_cast<std::size_t>(row)]);
    for (const auto& [index, id] : before) {
      if (!index.isValid()) continue;
      ASSERT_EQ(model.SpotAt(index.row())->ID, id);
    }
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
  spots_.erase(spots_.begin() + 10);
  for (auto& spot : spots_) spot = std::make_shared<Spot>(*spot);  // read anew
  Refresh();
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
  control_.Contents = "one\r\ntwo\r\n";
  EXPECT_EQ(view_.model()->rowCount(), 2);
  Q_EMIT view_.doubleClicked(view_.model()->index(0, 0));
  EXPECT_EQ(clicked.size(), 2u);
  control_.Contents = SpotRows();
  EXPECT_EQ(view_.model()->rowCount(), 0);
}

TEST_F(SpotListViewTest, OnlyTheReaderChoosesASpotAndEachOnce) {
  std::vector<std::string> chosen;
  control_.Select = [&](const Spot& spot) { chosen.push_back(spot.ID); };
  Receive(5);
  QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
  QApplication::sendEvent(&view_, &focus);
  const auto second = view_.visualRect(view_.model()->index(1, 0));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, {10, second.center().y()});
  QTest::keyClick(&view_, Qt::Key_Down);
  view_.setCurrentIndex(view_.model()->index(4, 0));
  Receive(3, 5);  // the chosen line is trimmed
  EXPECT_EQ(chosen, (std::vector<std::string>{"spot 4", "spot 3", "spot 1"}));
}

TEST_F(SpotListViewTest, CopiesTheSelectedLinesInTheOrderOfTheList) {
  Receive(5);
  for (const int row : {3, 1})
    view_.selectionModel()->select(view_.model()->index(row, 0), QItemSelectionModel::Select);
  Press(QKeySequence::Copy);
  const auto lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0].toStdString(), FixedWidthLine(*spots_[1]));
  EXPECT_EQ(lines[1].toStdString(), FixedWidthLine(*spots_[3]));
  Press(QKeySequence::SelectAll);
  EXPECT_EQ(Selected().size(), 5);
}

// The page around the list, as the window has it.
class ListPageTest : public ::testing::Test {
 protected:
  ListPageTest() {
    for (const char* station : {"G4ABC", "DL1XYZ", "G4ABC/P", "W6ABC"}) {
      auto spot = std::make_shared<Spot>();
      spot->ID = spot->Station = spot->stationBaseCallsign = station;
      spot->FormattedFrequencyString = "   14.062";
      spots_.push_back(spot);
    }
    control_.Contents = spots_;
    page_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(page_.get()));
    list_.setFocus();
  }

  void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }

  QString Count() { return page_->findChild<QLabel*>("searchCount")->text(); }

  // Opens the menu of the chosen line by keyboard and takes the item that begins so.
  bool Take(const QString& caption) {
    Press(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return false;
    const auto items = menu->actions();
    const auto item = std::find_if(items.begin(), items.end(), [&](const QAction* action) {
      return QString(action->text()).remove('&').startsWith(caption);
    });
    if (item != items.end()) (*item)->trigger();
    menu->close();
    return item != items.end();
  }

  ControlList controls_;
  SpotListBox control_{controls_, "txtSPOTList"};
  SpotRows spots_;
  std::unique_ptr<QWidget> page_{MakeSpotsPage()};
  SpotListView& list_ = *page_->findChild<SpotListView*>("txtSPOTList");
  Watch watch_ = list_.Follow(control_);
};

TEST_F(ListPageTest, ASearchGoesThroughTheLinesAndGivesTheFocusBack) {
  Press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "g4a");
  EXPECT_EQ(Count(), "1 of 2");
  struct Case {
    int Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Words;
  };
  for (const auto& [key, modifiers, words] : {Case{Qt::Key_Return, {}, "2 of 2"},
                                              {Qt::Key_F3, {}, "1 of 2"},
                                              {Qt::Key_F3, Qt::ShiftModifier, "2 of 2"},
                                              {Qt::Key_Enter, Qt::ShiftModifier, "1 of 2"}}) {
    Press(key, modifiers);
    EXPECT_EQ(Count(), words) << key;
  }
  spots_.insert(spots_.begin(), std::make_shared<Spot>(*spots_[2]));
  control_.Contents = spots_;
  EXPECT_EQ(Count(), "2 of 3");
  Press(Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &list_);
  Press(Qt::Key_F3);
  EXPECT_EQ(list_.ChosenLine(), std::optional<std::size_t>(3));
}

TEST_F(ListPageTest, TheMenuCopiesNarrowsAndAddsTheSpotOfItsLine) {
  std::string added;
  control_.AddToList = [&](CallsignListName name, const Spot& spot) {
    added = spot.ID + std::to_string(static_cast<int>(name));
  };
  list_.Choose(2);
  EXPECT_TRUE(Take("Copy callsign"));
  EXPECT_EQ(QApplication::clipboard()->text(), "G4ABC/P");
  EXPECT_TRUE(Take("Copy frequency"));
  EXPECT_EQ(QApplication::clipboard()->text(), "14.062");
  EXPECT_TRUE(Take("Exclude G4ABC/P"));
  EXPECT_EQ(added, "G4ABC/P1");
  EXPECT_FALSE(Take("Show only band"));
  EXPECT_TRUE(Take("Show only station"));
  EXPECT_EQ(list_.LineCount(), 2U);
  auto& words = *page_->findChild<QLabel*>("narrowedTo");
  EXPECT_TRUE(words.isVisible());
  EXPECT_EQ(words.text(), "Only station G4ABC/P is shown: 2 of 4 spots.");
  page_->findChild<QPushButton*>("showAll")->click();
  EXPECT_EQ(list_.LineCount(), 4U);
  EXPECT_FALSE(words.isVisible());
}

TEST_F(ListPageTest, TheZoomIsKeptInTheControlAndCarriesTheHeader) {
  list_.Header().setText("UTC    Station");
  QCoreApplication::processEvents();
  const auto height = list_.Header().height();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(control_.Zoom.Text.Get(), "120");
  QWheelEvent nudge({5, 5}, {5, 5}, {}, {0, 40}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
  for (int third = 0; third < 4; ++third) QApplication::sendEvent(list_.viewport(), &nudge);
  EXPECT_EQ(control_.Zoom.Text.Get(), "130");
  control_.Zoom.Text = "999";  // by hand in the file: the largest
  EXPECT_GT(list_.Header().height(), 2 * height);
  EXPECT_EQ(list_.Header().font(), list_.font());
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(control_.Zoom.Text.Get(), "100");
  EXPECT_EQ(list_.Header().height(), height);
}

}  // namespace
}  // namespace brelwin
