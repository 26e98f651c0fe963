// The board in the window: what its rows, its columns and its lines do when the board and the user act.
#include "qt/window/board_page.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <string>

#include "board_day.h"
#include "qt/window/board_export.h"
#include "qt/window/program_window.h"
#include "qt/window/replay_window.h"

namespace brelwin {
namespace {

TEST(ColumnLayoutTest, IsReadFromWhateverTextAndWrittenAsText) {
  const auto first = ColumnLayoutText(ReadColumnLayout(""));
  EXPECT_EQ(first.substr(0, 30), "State, Station, Summit, Name, ");
  const std::string rest = first.substr(first.find("Summit"));
  const std::pair<std::string, std::string> table[] = {
      {"Station 90,-State 5", "Station 90, -State 5, " + rest},
      {"Station,State,Nothing 7,Station 8,,-", "Station, State, " + rest},
      {"Station -4,State 999999", "Station, State 4000, " + rest},
      {"Station,State,sorted down by Points", "Station, State, " + rest + ", sorted down by Points"},
      {"Station,State,sorted by Nothing", "Station, State, " + rest},
  };
  for (const auto& [text, written] : table) EXPECT_EQ(ColumnLayoutText(ReadColumnLayout(text)), written);
  std::string hidden;
  for (const auto& info : BoardColumns()) hidden += "-" + std::string(info.Key) + ",";
  EXPECT_FALSE(ReadColumnLayout(hidden).Places.front().IsHidden);
}

class BoardPageTest : public ::testing::Test {
 protected:
  void Open(int activations) {
    if (activations > 0) test::TakeDay(host_, keeper_, activations);
    screen_.Window.Show.Raise();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  template <class Widget>
  Widget& Get(const char* name) {
    auto* widget = window_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return *widget;
  }

  BoardTable& Table() { return Get<BoardTable>("board"); }
  BoardPage& Page() { return *window_.findChild<BoardPage*>(); }
  QString Cell(int row, BoardColumn column, int role = Qt::DisplayRole) {
    return Table().model()->index(row, static_cast<int>(column)).data(role).toString();
  }
  QStringList Stations() {
    QStringList stations;
    for (int row = 0; row < Table().model()->rowCount(); ++row) stations << Cell(row, BoardColumn::Station);
    return stations;
  }

  test::TestHost host_;
  BoardKeeper keeper_{host_.World};
  std::vector<std::string> opened_;
  Screen screen_;
  Surroundings around_{host_.World, screen_.Places};
  ProgramWindow window_{
      screen_, [] {},
      ActivationDoors{
          BoardDoors{keeper_.Board(), keeper_.Changed, [this] { return UTCNow(host_.Time); },
                     test::AroundOnTheDay, [this](const std::string& summit) { opened_.push_back(summit); },
                     [this](const std::string& call) { opened_.push_back(call); }},
          keeper_, around_, host_.World}};
};

TEST_F(BoardPageTest, FollowsTheBoardButHoldsStillWhileARowIsLookedAt) {
  Open(8);
  const QStringList before{"G4ABC/P", "OE/DL1ABC/P", "HB9XY/P", "W6XYZ", "GW"};
  EXPECT_EQ(Stations().mid(0, 3), before.mid(0, 3));
  EXPECT_EQ(Cell(0, BoardColumn::State, Qt::AccessibleTextRole),
            "heard and spotted, G4ABC portable on G/LD-003, 7.032 CW, 6 skimmers");
  Table().setFocus();
  Table().selectRow(1);
  const auto held = Stations();
  AnnouncementsRead oneMore{{test::AnnouncedOnTheDay(2000)}};
  for (int number = 0; number < 8; ++number) oneMore.All.push_back(test::AnnouncedOnTheDay(number));
  keeper_.Take(oneMore);
  keeper_.Take(test::HeardOnTheDay(1, test::LookMinute, 14.061F));
  Page().Follow();
  EXPECT_EQ(Stations(), held);
  auto& waiting = Get<QPushButton>("boardWaiting");
  EXPECT_EQ(waiting.text(), "1 new, show");
  EXPECT_EQ(Cell(1, BoardColumn::LastHeard), "12:34");
  QTest::keyClick(&waiting, Qt::Key_Return);
  EXPECT_FALSE(waiting.isVisible());
  EXPECT_EQ(Stations().front(), "OE/DL1ABC/P");
  EXPECT_EQ(Stations().size(), held.size() + 1);
  EXPECT_EQ(Table().Selected()->Who.Station, "OE/DL1ABC/P");
  Get<QPushButton>("summitPage").click();
  Get<QPushButton>("stationPage").click();
  EXPECT_EQ(opened_, (std::vector<std::string>{"OE/TI-123", "DL1ABC"}));
  EXPECT_EQ(Get<QWidget>("signalPicture").accessibleDescription().toStdString(),
            "30m: 8 minutes, best 29 dB at 12:30, last 19 dB at 12:32; 20m: 1 minute, best 9 dB at 12:34, "
            "last 9 dB "
            "at 12:34");
}

TEST_F(BoardPageTest, ShowsWhatIsSearchedAndNotHiddenAndKeepsTheBoxes) {
  Open(20);
  auto& finished = Get<QPushButton>("boardFinished");
  const auto live = Stations().size();
  const auto text = finished.text();
  finished.click();
  EXPECT_EQ(text, QString::number(Stations().size() - live) + " finished, show");
  Get<QLineEdit>("boardSearch").setText("g4abc 40m");
  EXPECT_EQ(Stations(), QStringList{"G4ABC/P"});
  Get<QLineEdit>("boardSearch").setText("no such words");
  EXPECT_TRUE(Get<QLabel>("boardEmpty").isVisible());
  Get<QLineEdit>("boardSearch").clear();
  const auto all = Stations().size();
  Get<QCheckBox>("boardOnlyNeeded").click();
  Get<QCheckBox>("boardHideWorked").click();
  EXPECT_LT(Stations().size(), all / 2);
  EXPECT_EQ(screen_.Window.BoardHides.Text.Get(), "others, worked");
  screen_.Window.BoardHides.Text = std::string("worked");
  EXPECT_FALSE(Get<QCheckBox>("boardOnlyNeeded").isChecked());
}

TEST_F(BoardPageTest, ColumnsAreSortedMovedAndHiddenAndKept) {
  screen_.Window.BoardColumns.Text = std::string("Station, -State, Points, sorted down by Distance");
  Open(8);
  auto& header = *Table().horizontalHeader();
  EXPECT_EQ(header.logicalIndex(0), static_cast<int>(BoardColumn::Station));
  EXPECT_TRUE(Table().isColumnHidden(static_cast<int>(BoardColumn::State)));
  EXPECT_GT(Cell(0, BoardColumn::Distance).toInt(), Cell(1, BoardColumn::Distance).toInt());
  EXPECT_TRUE(Cell(0, BoardColumn::Station, Qt::AccessibleTextRole).contains(", "));
  header.setSortIndicator(static_cast<int>(BoardColumn::Station), Qt::AscendingOrder);
  auto sorted = Stations();
  sorted.sort();
  EXPECT_EQ(Stations(), sorted);
  Table().setCurrentIndex(Table().model()->index(0, static_cast<int>(BoardColumn::Station)));
  QTest::keyClick(&Table(), Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
  const auto& kept = screen_.Window.BoardColumns.Text.Get();
  EXPECT_LT(kept.find("Points"), kept.find("Station ")) << kept;
  EXPECT_TRUE(kept.ends_with(", sorted by Station")) << kept;
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().section('\t', 1, 1), Stations().front());
}

TEST_F(BoardPageTest, AnEmptyBoardOffersTheSwitchAndTheListStaysOnItsTab) {
  int clicks = 0;
  screen_.RBN.chkReverseBeaconSpotsEnabled.Click = [&clicks] { ++clicks; };
  Open(0);
  EXPECT_TRUE(Get<QLabel>("boardEmpty").text().startsWith("The Reverse Beacon Network is off"));
  Get<QPushButton>("boardSwitchOn").click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(screen_.RBN.chkReverseBeaconSpotsEnabled.Value);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Get<QPushButton>("boardSwitchOn").isVisible(); }));
  screen_.Window.CurrentTab = 0;
  EXPECT_EQ(Get<QTabWidget>("SSTab1").tabText(Get<QTabWidget>("SSTab1").currentIndex()), "Spots");
}

TEST_F(BoardPageTest, PlaysADayAgainInAWindowOfItsOwn) {
  Open(8);
  keeper_.Save();
  const auto live = Stations();
  Get<QPushButton>("boardReplay").click();
  auto& replay = *window_.findChild<ReplayWindow*>();
  const auto play = [&](const QDateTime& begin) {
    replay.findChild<QDateTimeEdit*>("replayBegin")->setDateTime(begin);
    replay.findChild<QPushButton*>("replayPlay")->click();
    return replay.findChild<QLabel*>("replayState")->text();
  };
  EXPECT_EQ(play(QDateTime({2026, 11, 24}, {0, 0})), "Nothing was kept of this day.");
  EXPECT_EQ(play(QDateTime({2026, 11, 26}, {12, 10})), "2026-11-26 12:10:00 UTC");
  const auto stateOfFirst = [&] {
    auto& model = *replay.findChild<BoardTable*>("board")->model();
    return model.rowCount() == 0 ? QString()
                                 : model.index(0, static_cast<int>(BoardColumn::State)).data().toString();
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return stateOfFirst() == "◉ Heard"; }));
  host_.Time.MoveTo(host_.Time.Now() + std::chrono::seconds(24));
  EXPECT_TRUE(QTest::qWaitFor([&] { return stateOfFirst() == "★ Heard and spotted"; }));
  EXPECT_EQ(Stations(), live);
}

TEST_F(BoardPageTest, IsExportedWholeOrNotAtAll) {
  Open(8);
  const BoardDoors doors{
      keeper_.Board(), keeper_.Changed, [this] { return UTCNow(host_.Time); }, test::AroundOnTheDay, {}, {}};
  BoardView all;
  all.ShowsFinished = true;
  const auto text = BoardAsCsv(doors, all);
  EXPECT_TRUE(text.startsWith("\xEF\xBB\xBF\"State\",\"Station\","));
  EXPECT_EQ(text.count("\r\n"), 1 + static_cast<int>(keeper_.Board().Rows().size()));
  EXPECT_TRUE(text.contains("Große Klammspitze"));
  const QTemporaryDir folder;
  EXPECT_EQ(WriteExport(folder.filePath("board.csv"), text), QString());
  EXPECT_FALSE(WriteExport(folder.filePath("none/board.csv"), text).isEmpty());
}

}  // namespace
}  // namespace brelwin
