// The board: days of one station told as events, and what its rows say at given minutes.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "board/board.h"
#include "board/board_columns.h"
#include "board/board_order.h"
#include "board/quit_words.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

// Minutes after 10:00 UTC.
DateTime At(int minute) {
  return AddMinutes(*ReadDateTime("2026-11-26 10:00"), minute);
}

StationOnSummit Station(std::string_view summit = "G/LD-003") {
  return {"G4ABC/P", "G4ABC", std::string(summit), "Helvellyn", 10};
}

// Its window is from minute 30 to minute 240.
AnnouncedStation Announced(Withdrawal withdrawn = Withdrawal::None) {
  return {Station(), {"K1", At(30), At(60), At(240), "14.062-cw", "with dog", withdrawn, false}};
}

AnnouncementsRead Page(std::vector<AnnouncedStation> all) {
  return {std::move(all)};
}

SkimmerHeard Heard(int minute, float mhz = 14.062F, std::string_view skimmer = "DK1AA",
                   std::int32_t signal = 20) {
  return {"G4ABC/P", "G4ABC", {At(minute), mhz, "CW", std::string(skimmer), signal, 22}};
}

SotawatchSpotRead Spotted(int minute, std::string_view comment = "", std::string_view summit = "G/LD-003",
                          std::string_view id = "1", float mhz = 14.062F) {
  return {Station(summit),
          {std::string(id), At(minute), mhz, "CW", std::string(comment), "G4ABC", true, SaysQRT(comment)}};
}

struct Told {
  int Minute = 0;
  BoardEvent Event;
};

Board After(const std::vector<Told>& story) {
  Board board;
  for (const auto& told : story) board.Take({At(told.Minute), told.Event});
  return board;
}

// "Heard: heard by 1 skimmer, last just now" of every row, parted by "; ".
std::string StatesOf(const Board& board, int minute) {
  std::string text;
  for (const auto& [number, row] : board.Rows()) {
    const auto verdict = StateOf(row.Facts, At(minute));
    if (!text.empty()) text += "; ";
    text += std::string(StateWord(verdict.State)) + ": " + ReasonInWords(verdict, row.Facts, At(minute));
  }
  return text;
}

struct StateStory {
  std::string_view Story;
  std::vector<Told> Events;
  std::vector<std::pair<int, std::string_view>> States;
};

const auto Listed = Told{0, Page({Announced()})};

const StateStory Stories[] = {
    {"never heard",
     {Listed},
     {{0, "Announced: announced for 2026-11-26 11:00"},
      {30, "Due: in its window 10:30 to 14:00, not heard"},
      {240, "Due: in its window 10:30 to 14:00, not heard"},
      {241, "No-show: never heard, its window ended at 14:00"}}},
    {"heard before its window, then silent",
     {Listed, {20, Heard(20)}},
     {{20, "Heard: heard by 1 skimmer, last just now"},
      {34, "Heard: heard by skimmers, last 14 min ago"},
      {35, "Quiet: nothing heard for 15 min"},
      {79, "Quiet: nothing heard for 59 min"},
      {80, "Due: in its window 10:30 to 14:00, not heard"},
      {241, "Off: nothing heard for 221 min, no window open"}}},
    {"heard, spotted and gone",
     {{5, Spotted(5)},
      {6, Heard(6)},
      {7, Heard(7, 14.062F, "DK2BB")},
      {30, Spotted(30, "QRT, tnx all", "G/LD-003", "2")}},
     {{30, "Off: QRT at 10:30: QRT, tnx all"}}},
    {"heard by two and spotted",
     {{5, Spotted(5)}, {6, Heard(6)}, {7, Heard(7, 14.062F, "DK2BB")}},
     {{8, "Heard and spotted: heard by 2 skimmers, spotted by himself"}}},
    {"back after the last calls",
     {{5, Spotted(5, "QRT")}, {9, Heard(9)}, {12, Heard(12)}},
     {{12, "Heard and spotted: heard by 1 skimmer, spotted by himself"}}},
    {"heard long before its window",
     {Listed, {-85, Heard(-85)}},
     {{-20, "Announced: announced for 2026-11-26 11:00"}}},
    {"heard long before its window, then in it",
     {Listed, {-85, Heard(-85)}, {40, Heard(40)}},
     {{239, "Quiet: nothing heard for 199 min"}}},
    {"heard at home days before",
     {Listed, {-1000, Heard(-1000)}},
     {{0, "Announced: announced for 2026-11-26 11:00"}}},
    {"silent without a window",
     {{5, Spotted(5)}},
     {{64, "Quiet: nothing heard for 59 min"}, {65, "Off: nothing heard for 60 min, no window open"}}},
    {"cancelled",
     {Listed, {10, Page({Announced(Withdrawal::Cancelled)})}},
     {{11, "Cancelled: cancelled by the activator"}}},
    {"removed by hand",
     {Listed, {10, Page({Announced(Withdrawal::RemovedByEntry)})}},
     {{11, "Cancelled: removed by an entry of the modifications file"}}},
    {"taken off the page",
     {Listed, {10, Page({})}},
     {{11, "Cancelled: taken off the list of announcements"}}},
    {"opted out, and spotted all the same",
     {{0, Page({Announced(Withdrawal::OptedOut)})}, {40, Heard(40)}, {50, Spotted(50)}},
     {{45, "Spotted: spotted by himself, just now"},
      {66, "Opted out: asks not to be spotted automatically"}}},
    {"from summit to summit",
     {Listed, {40, Spotted(40)}, {100, Spotted(100, "", "G/LD-004", "2")}},
     {{100, "Off: moved to G/LD-004 at 11:40; Spotted: spotted by himself, just now"}}},
    {"two rows a day",
     {{0, Spotted(0)}, {239, Heard(239)}, {480, Heard(480)}},
     {{480, "Off: nothing heard for 241 min, no window open; Heard: heard by 1 skimmer, last just now"}}},
    {"a spot that was taken back",
     {{5, Spotted(5)}, {6, SotawatchSpotTakenBack{"G4ABC", "1"}}},
     {{7, "Cancelled: its spots were taken back"}}},
};

TEST(Board, TellsTheStateOfAnActivationAtEveryMinute) {
  for (const auto& story : Stories) {
    const auto board = After(story.Events);
    for (const auto& [minute, state] : story.States) {
      std::string_view wanted = state;
      EXPECT_EQ(StatesOf(board, minute), wanted) << story.Story << ", minute " << minute;
    }
  }
}

TEST(Board, TellsTheStoryOfARow) {
  EXPECT_FALSE(IsQSY({14.062F, "CW", {}, false}, {14.064F, "CW", {}, false}));
  EXPECT_TRUE(IsQSY({14.062F, "CW", {}, false}, {14.0641F, "CW", {}, false}));
  const auto board = After({{0, Page({Announced()})},
                            {40, Heard(40)},
                            {41, Spotted(41, "calling")},
                            {44, Heard(44, 14.0635F)},
                            {45, Heard(45, 7.032F)},
                            {45, Heard(45, 14.062F, "W1AA")},
                            {45, Heard(45, 14.062F, "W2AA")},
                            {46, Heard(46, 7.032F, "DK2BB")},
                            {47, GatewayDecided{"G4ABC", {At(47), true, "posted"}}},
                            {47, GatewayDecided{"M0XYZ", {At(47), true, "of no row"}}}});
  ASSERT_EQ(board.Rows().size(), 1U);
  const auto& row = board.Rows().begin()->second;
  std::string story;
  for (const auto& event : row.Story) story += ClockText(event.When) + ' ' + event.Words + '\n';
  EXPECT_EQ(story,
            "10:00 announced for 2026-11-26 11:00, 10:30 to 14:00\n"
            "10:40 heard by DK1AA on 14.062 CW\n"
            "10:41 spotted by himself on 14.062 CW: calling\n"
            "10:45 QSY from 14.062 CW to 7.032 CW\n"
            "10:47 posted\n");
  EXPECT_EQ(board.ChangedSince(0), (std::vector<RowNumber>{1}));
  EXPECT_TRUE(board.ChangedSince(board.Revision()).empty());
}

TEST(Board, SaysEachRowInColumnsInASentenceAndAsATableWithCommas) {
  auto board = After({{0, Page({Announced()})}, {40, Heard(40)}, {41, Heard(41, 14.0622F, "W1AA", 31)}});
  RowSurroundings around;
  around.DistanceInKm = 1654.6;
  around.BearingInDegrees = 5.2;
  around.Needed = "new summit";
  const auto& row = board.Rows().begin()->second;
  EXPECT_EQ(
      CsvLine(MomentOf(row, around, At(42))),
      R"("◉ Heard","G4ABC/P","G/LD-003","Helvellyn","10","10:30–14:00","14.062","CW","2","","31 dB","22 WPM",)"
      R"("10:40","10:41","1655","5°","","new summit","","in its window")");
  EXPECT_EQ(Split(CsvHeader(), "\",\"").size(), BoardColumnCount);
  EXPECT_EQ(RowSentence(MomentOf(row, around, At(42))),
            "heard, G4ABC portable on G/LD-003, 14.062 CW, 2 skimmers, new summit");
  EXPECT_DOUBLE_EQ(WindowOf(MomentOf(row, around, At(135)))->Elapsed, 0.5);

  const auto ahead = After({{0, Page({Announced()})}});
  const auto moment = MomentOf(ahead.Rows().begin()->second, around, At(0));
  EXPECT_EQ(CellText(BoardColumn::Window, moment), "10:30–14:00, in 1 h 00 min");
  EXPECT_EQ(RowSentence(moment),
            "announced, G4ABC portable on G/LD-003, planned for 11:00, 14.062-cw, new summit");
}

struct Named {
  std::string_view Callsign;
  std::string_view Summit;
};

AnnouncedStation AnnouncedAt(const Named& who, int begin, int end) {
  const std::string callsign(who.Callsign);
  return {{callsign, callsign, std::string(who.Summit), "", 1},
          {callsign, At(begin), At(begin), At(end), "", "", Withdrawal::None, false}};
}

SkimmerHeard HeardOf(std::string_view callsign, int minute, float mhz) {
  return {std::string(callsign), std::string(callsign), {At(minute), mhz, "CW", "DK1AA", 20, 22}};
}

SotawatchSpotRead SpottedOf(std::string_view callsign, int minute, float mhz) {
  const std::string name(callsign);
  return {{name, name, "", "", 0}, {name, At(minute), mhz, "CW", "", "G0AA", false, false}};
}

TEST(Board, OrdersFoldsAndSearchesItsRows) {
  Board board;
  auto due = AnnouncedAt({"OE3DUE", "OE/TI-003"}, 90, 200);
  due.What.FrequencyModes = "7.120, 20m-ssb";
  auto soon = AnnouncedAt({"DL2SOON", "DM/BW-002"}, 200, 400);
  soon.What.FrequencyModes = "120m, 7.20m, 20mw";
  board.Take({At(0), Page({AnnouncedAt({"DL1LATE", "DM/BW-001"}, 300, 400), soon, due,
                           AnnouncedAt({"OE4GONE", "OE/TI-004"}, 1, 2)})});
  board.Take({At(70), SpottedOf("HB9QUIET", 70, 7.032F)});
  board.Take({At(98), SpottedOf("F5OLDER", 98, 14.062F)});
  board.Take({At(99), SpottedOf("F6NEWER", 99, 7.031F)});
  const auto rows = [&](const BoardView& view) {
    std::string text;
    const auto order = OrderOf(
        board, view,
        [](const ActivationRow& row) {
          RowSurroundings around;
          around.IsNeeded = row.Who.BaseCallsign == "F5OLDER";
          around.IsWorkedToday = row.Who.BaseCallsign == "F6NEWER";
          return around;
        },
        At(100));
    for (const auto number : order.Rows) text += board.Find(number)->Who.Station + ' ';
    return text + std::to_string(order.FinishedCount);
  };
  const auto searched = [](std::string_view words) {
    BoardView view;
    view.Search = words;
    return view;
  };
  BoardView all;
  all.ShowsFinished = true;
  BoardView byFrequency;
  byFrequency.SortedBy = BoardColumn::Frequency;
  auto downwards = byFrequency;
  downwards.IsDescending = true;
  BoardView needed;
  needed.OnlyNeeded = true;
  BoardView unworked;
  unworked.HidesWorkedToday = true;
  const struct {
    BoardView View;
    std::string_view Rows;
  } views[] = {
      {{}, "F6NEWER F5OLDER OE3DUE DL2SOON DL1LATE HB9QUIET 1"},
      {all, "F6NEWER F5OLDER OE3DUE DL2SOON DL1LATE HB9QUIET OE4GONE 1"},
      {byFrequency, "F6NEWER HB9QUIET F5OLDER OE3DUE DL2SOON DL1LATE 1"},
      {downwards, "F5OLDER HB9QUIET F6NEWER OE3DUE DL2SOON DL1LATE 1"},
      {needed, "F5OLDER 0"},
      {unworked, "F5OLDER OE3DUE DL2SOON DL1LATE HB9QUIET 1"},
      {searched("oe/ti"), "OE3DUE 1"},
      {searched(" 40m cw "), "F6NEWER HB9QUIET 0"},
      {searched("20m"), "F5OLDER OE3DUE 0"},
      {searched("dm/bw-002"), "DL2SOON 0"},
      {searched("nobody"), "0"},
  };
  for (const auto& view : views) EXPECT_EQ(rows(view.View), view.Rows) << view.View.Search;
}

TEST(Board, ForgetsWhatIsOldAndKeepsItsBounds) {
  Board board({3, 3600});
  for (const auto* callsign : {"A1A", "B1B", "C1C", "D1D"})
    board.Take({At(0), SpottedOf(callsign, 0, 7.03F)});
  EXPECT_EQ(board.Forget(At(1)), (std::vector<RowNumber>{1}));
  EXPECT_FALSE(board.Follows("A1A"));
  EXPECT_TRUE(board.Follows("B1B"));
  for (int second = 0; second < 2000; ++second) board.Take({At(1), HeardOf("B1B", 1, 7.03F)});
  EXPECT_LE(board.Find(2)->Facts.Hearings.size(), 300U);
  EXPECT_EQ(board.Forget(At(61)), (std::vector<RowNumber>{3, 4}));
  EXPECT_FALSE(board.Restore(*board.Find(2)));
}

TEST(Board, KnowsWhoSaysThatHeLeavesTheAir) {
  for (const auto* comment : {"QRT", "qrt tnx", "now QRT 73"}) EXPECT_TRUE(SaysQRT(comment)) << comment;
  for (const auto* comment : {"", "QRT soon", "QRT in 5", "not QRT", "QRT?", "QRTX"})
    EXPECT_FALSE(SaysQRT(comment)) << comment;
}

}  // namespace
}  // namespace brelwin
