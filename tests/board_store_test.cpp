// What of the board outlives the program: rows and events as text, the file that holds them, the keeper that
// restores and saves, and a day played again.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "board/activation_state.h"
#include "board/board_keeper.h"
#include "board/replay.h"
#include "platform/sqlite_activation_store.h"
#include "platform/sqlite_database.h"
#include "radio/dates.h"
#include "temporary_folder.h"
#include "test_host.h"

namespace brelwin {
namespace {

const DateTime Day = *DateTimeFromCalendar({2026, 11, 24, 0, 0, 0});

StationOnSummit OnHelvellyn() {
  return {"G4ABC/P", "G4ABC", "G/LD-003", "Helvellyn", 8};
}

AnnouncementsRead Announced(DateTime planned, const std::string& comment = "") {
  const Announcement what{"key",  AddMinutes(planned, -60), planned, AddMinutes(planned, 60), "14-cw",
                          comment};
  return {{{OnHelvellyn(), what}}};
}

SkimmerHeard HeardAt(DateTime when, const std::string& skimmer = "KM3T-2") {
  return {"G4ABC/P", "G4ABC", {when, 14.0623F, "CW", skimmer, 24, 22}};
}

SotawatchSpotRead SpottedAt(DateTime when) {
  return {OnHelvellyn(), {"1", when, 14.0623F, "CW", "QRT soon", "G4ABC", true, false}};
}

// A row in which everything is something.
ActivationRow FullRow() {
  Board board;
  const auto noon = AddMinutes(Day, 720);
  board.Take({noon, Announced(noon)});
  board.Take({noon, HeardAt(noon)});
  board.Take({noon, SpottedAt(noon)});
  board.Take({noon, GatewayDecided{"G4ABC", {noon, true, "sent"}}});
  auto row = board.Rows().begin()->second;
  row.Facts.Reports.front().Comment = "QRT \"soon\" \xC3\xA9";
  row.Facts.MovedTo = "G/LD-001";
  row.Facts.MovedAt = noon;
  return row;
}

TEST(BoardText, ARowIsReadAsItWasWritten) {
  const auto row = FullRow();
  const auto text = RowText(row);
  EXPECT_EQ(row, ReadRowText(text)) << text;
  EXPECT_EQ(std::string::npos, text.find('\n'));
  EXPECT_EQ(ActivationRow(), ReadRowText(RowText({})));
  EXPECT_EQ(1, ReadRowText(R"({"number":1,"later":{"x":[1]}})")->Number);
}

TEST(BoardText, WhatIsNoRowIsRefused) {
  for (const std::string text :
       {"", "[]", "7", "{\"number\":\"1\"}", "{\"number\":1.5}", "{\"number\":99999999999999999999}",
        "{\"who\":{\"points\":40000}}", "{\"last\":-1}", "{\"last\":253402300800}",
        "{\"story\":[{\"kind\":99}]}", "{\"story\":{}}", "{\"signals\":[{\"band\":1e99}]}", "{\"number\":1",
        "{\"who\":{\"call\":\"\xFF\"}}"})
    EXPECT_FALSE(ReadRowText(text)) << text;
  EXPECT_FALSE(ReadRowText(std::string(100'000, '[')));
  ActivationRow notText;
  notText.Who.Station = "\xFF";
  EXPECT_TRUE(ReadRowText(RowText(notText)));
}

TEST(BoardText, OnlyTheFirstAnnouncementsOfADayAreWrittenWhole) {
  const auto one = Announced(AddMinutes(Day, 720)), other = Announced(AddMinutes(Day, 720), "late");
  const std::vector<TimedEvent> events = {{Day, one},
                                          {AddMinutes(Day, 1), other},
                                          {AddMinutes(Day, 2), HeardAt(Day)},
                                          {AddMinutes(Day, 3), AnnouncementsRead()},
                                          {AddMinutes(Day, 1440), one},
                                          {AddMinutes(Day, 1441), SotawatchSpotTakenBack{"G4ABC", "1"}}};
  EventWriter writer;
  EventReader reader, late;
  for (const auto& event : events) {
    const auto text = writer.Write(event);
    EXPECT_EQ(event, reader.Read(text)) << text;
    if (event.When < AddMinutes(Day, 1440)) continue;
    EXPECT_EQ(event, late.Read(text)) << text;
  }
  EXPECT_EQ("", writer.Write({AddMinutes(Day, 1442), one}));
  for (const auto* text : {"{}", "x", R"({"t":1,"kind":"other","event":{}})", R"({"t":1,"kind":"heard"})",
                           R"({"t":1,"kind":"announced","event":{"changed":7,"gone":[]}})"})
    EXPECT_FALSE(reader.Read(text)) << text;
}

struct StoredBoard : testing::Test {
  test::TemporaryFolder Folder;
  test::TestClock Clock;
  std::string Path = Folder.In("brelwin.db");

  std::unique_ptr<SqliteActivationStore> Open() {
    return std::make_unique<SqliteActivationStore>(Path, Clock);
  }

  static StoreChange Change(std::int64_t number) {
    return {{{number, Day, "G4ABC", "G/LD-003", "text"}}, {}, {{Day, "event"}}, AddMinutes(Day, -1)};
  }

  std::size_t FilesAside() const {
    std::size_t count = 0;
    for (const auto& file : std::filesystem::directory_iterator(Folder.Path()))
      count += file.path().filename().string().starts_with("brelwin.db.broken-20261124-120000") ? 1U : 0U;
    return count;
  }
};

TEST_F(StoredBoard, ChangesAreThereAfterARestart) {
  {
    const auto store = Open();
    EXPECT_EQ(StoreOutcome::Done, store->Save(Change(1)).Outcome);
    auto change = Change(2);
    change.Rows.push_back({3, Day, "", "", ""});
    EXPECT_EQ(StoreOutcome::Done, store->Save(change).Outcome);
    EXPECT_EQ(StoreOutcome::Done, store->Save({{}, {2}, {}, AddMinutes(Day, -1)}).Outcome);
  }
  std::vector<KeptRow> rows;
  std::vector<KeptEvent> events;
  const auto store = Open();
  EXPECT_EQ("", store->Load(rows).Words);
  ASSERT_EQ(2U, rows.size());
  EXPECT_EQ("G4ABC", rows[0].Station);
  EXPECT_EQ(3, rows[1].Number);
  store->LoadEvents(Day, AddMinutes(Day, 1), events);
  EXPECT_EQ(2U, events.size());
  EXPECT_EQ(StoreOutcome::Done, store->Save({{}, {}, {}, AddMinutes(Day, 1)}).Outcome);
  store->LoadEvents({}, AddMinutes(Day, 2), events);
  EXPECT_EQ(2U, events.size()) << "older ones are forgotten";
}

void Overwrite(const std::string& path, std::streamoff from, std::size_t length) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(from);
  file << std::string(length, '\x55');
}

void Execute(const std::string& path, const char* statements) {
  SqliteDatabase(path).Run(statements);
}

TEST_F(StoredBoard, AFileThatCannotBeUsedIsRenamed) {
  const std::vector<std::pair<const char*, std::function<void()>>> faults = {
      {"no database", [&] { Overwrite(Path, 0, 100); }},
      {"damaged", [&] { Overwrite(Path, 4096, 8192); }},
      {"cut", [&] { std::filesystem::resize_file(Path, 5000); }},
      {"of others", [&] { Execute(Path, "DROP TABLE activations; CREATE TABLE activations (x)"); }},
      {"of a later version", [&] { Execute(Path, "PRAGMA user_version = 9"); }}};
  std::size_t aside = 0;
  for (const auto& [name, spoil] : faults) {
    Open()->Save(Change(1));
    spoil();
    std::vector<KeptRow> rows;
    const auto store = Open();
    const auto result = store->Load(rows);
    EXPECT_EQ(StoreOutcome::MadeAnew, result.Outcome) << name << result.Words;
    EXPECT_NE(std::string::npos, result.Words.find("was renamed to " + Path + ".broken-")) << result.Words;
    EXPECT_TRUE(rows.empty()) << name;
    EXPECT_EQ(++aside, FilesAside()) << name;
    EXPECT_EQ(StoreOutcome::Done, store->Save(Change(1)).Outcome) << name;
  }
}

TEST_F(StoredBoard, WhatOthersHoldIsWaitedForWhileTheProgramRunsAndRenamedAtItsStart) {
  const auto store = Open();
  store->Save(Change(1));
  SqliteDatabase other(Path);
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_EQ(StoreOutcome::NotDone, store->Save(Change(2)).Outcome);
  auto last = Change(2);
  last.IsLast = true;
  std::thread letsGo([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    other.Run("COMMIT");
  });
  EXPECT_EQ(StoreOutcome::Done, store->Save(last).Outcome) << "the program ends with it";
  letsGo.join();
  other.Run("BEGIN EXCLUSIVE");
  std::vector<KeptRow> rows;
  EXPECT_EQ(StoreOutcome::MadeAnew, Open()->Load(rows).Outcome);
}

TEST_F(StoredBoard, AFileThatIsRemovedOrCannotBeMadeIsTold) {
  const auto store = Open();
  store->Save(Change(1));
  std::filesystem::remove(Path);
  std::int64_t count = 0;
  EXPECT_EQ(StoreOutcome::MadeAnew, store->CountSummits(count).Outcome);
  EXPECT_EQ(StoreOutcome::MadeAnew, store->Save(Change(2)).Outcome) << "whoever saves has to know";
  EXPECT_EQ(StoreOutcome::Done, store->Save(Change(2)).Outcome);
  SqliteActivationStore nowhere(Folder.In("none/brelwin.db"), Clock);
  const auto result = nowhere.Save(Change(1));
  EXPECT_EQ(StoreOutcome::NotDone, result.Outcome);
  EXPECT_NE("", result.Words);
}

struct KeptBoard : testing::Test, test::TestHost {
  void Wait(int seconds) { Queue.RunFor(std::chrono::seconds(seconds)); }
};

TEST_F(KeptBoard, IsRestoredAsItWasAndSavedOncePerFewSeconds) {
  BoardKeeper keeper(World);
  keeper.Take(Announced(AddMinutes(Day, 730)));
  for (int i = 0; i < 50; ++i) keeper.Take(HeardAt(AddMinutes(Day, 720), std::to_string(i)));
  EXPECT_EQ(0, Store.Saves);
  Wait(60);
  EXPECT_EQ(1, Store.Saves);
  Store.Rows[7] = {7, Day, "", "", "garbage"};
  BoardKeeper next(World);
  next.Restore();
  EXPECT_EQ(keeper.Board().Rows(), next.Board().Rows());
  EXPECT_EQ("RestoreBoard - 1 of 2 kept rows of the board cannot be read and are left out.\n",
            TakeMessages());
  Wait(31 * 24 * 3600);
  next.Take(SpottedAt(UTCNow(Time)));
  Wait(10);
  EXPECT_FALSE(Store.Rows.contains(1)) << "rows of the last 30 days are kept";
}

TEST_F(KeptBoard, AStoreThatFailsIsToldOnceAndLosesNothing) {
  BoardKeeper keeper(World);
  Store.Next = {StoreOutcome::NotDone, "disk full"};
  keeper.Take(SpottedAt(AddMinutes(Day, 720)));
  Wait(60);
  EXPECT_GT(Store.Saves, 5);
  EXPECT_EQ("KeepBoard - disk full\n", TakeMessages());
  Store.Next = {};
  Wait(10);
  EXPECT_EQ(1U, Store.Events.size());
  Store.Next = {StoreOutcome::MadeAnew, "renamed"};
  keeper.Take(HeardAt(AddMinutes(Day, 720)));
  Wait(10);
  EXPECT_EQ(1U, Store.Rows.size()) << "a new store gets every row";
  EXPECT_EQ("KeepBoard - renamed\n", TakeMessages());
}

TEST_F(KeptBoard, ADayIsPlayedAgainInItsOrderAndFaster) {
  BoardKeeper keeper(World);
  Time.SetLocalTime(AddMinutes(Day, -60));
  keeper.Take(Announced(AddMinutes(Day, 10)));
  Time.SetLocalTime(AddMinutes(Day, 5));
  keeper.Take(HeardAt(AddMinutes(Day, 5)));
  Time.SetLocalTime(AddMinutes(Day, 1441));
  keeper.Take(HeardAt(AddMinutes(Day, 1441)));
  keeper.Save();
  const Instant begin{};
  const auto at = [&](int seconds) { return begin + std::chrono::seconds(seconds); };
  std::vector<TimedEvent> events;
  EXPECT_EQ(StoreOutcome::Done, EventsOfDay(
                                    Store, Day, [] { return true; }, events)
                                    .Outcome);
  Replay replay(std::move(events), Day, AddMinutes(Day, 1440), 1000, begin);
  EXPECT_EQ(100, replay.Speed());
  Board board;
  const auto play = [&](int seconds) {
    for (const auto& event : replay.Due(at(seconds))) board.Take(event);
    return board.Rows().empty()
               ? ActivationState::Off
               : StateOf(board.Rows().begin()->second.Facts, replay.TimeAt(at(seconds))).State;
  };
  EXPECT_EQ(ActivationState::Due, play(2));
  EXPECT_EQ(ActivationState::Heard, play(3));
  replay.SetSpeed(10, at(3));
  EXPECT_EQ(AddSeconds(Day, 310), replay.TimeAt(at(4)));
  EXPECT_FALSE(replay.IsOver(at(3600)));
  play(1'000'000);
  EXPECT_EQ(AddMinutes(Day, 1440), replay.TimeAt(at(1'000'000)));
  EXPECT_EQ(1, board.Rows().begin()->second.Facts.Heard->Lines) << "the next day is not played";
}

}  // namespace
}  // namespace brelwin
