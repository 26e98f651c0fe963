// What is known around an activation: summits, countries and the log, as the settings name them.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "around/board_map.h"
#include "around/surroundings.h"
#include "board/band_activity.h"
#include "board/board.h"
#include "platform/sqlite_activation_store.h"
#include "radio/dates.h"
#include "temporary_folder.h"
#include "test_host.h"

namespace brelwin {
namespace {

constexpr std::string_view Summits =
    "SOTA Summits List (Date=26/11/2026)\nSummitCode,SummitName,Longitude,Latitude,Points,ActivationCount\n"
    "G/LD-003,Helvellyn,-3.02,54.53,8,321\nOE/TI-123,Klammspitze,,,6,4\nbroken\n";
constexpr std::string_view Countries =
    "Fed. Rep. of Germany: 14: 28: EU: 51.0: -10.0: -1.0: DL:\n  DL;\n"
    "United States: 5: 8: NA: 37.6: 91.9: 5.0: K:\n  K,W;\n";
constexpr std::string_view Log = "V2,G4XYZ,,01/02/26,1012,14MHz,CW,G4ABC/P,G/LD-003\nV2,G4XYZ,,01/02/26\n";

class AroundTest : public ::testing::Test {
 protected:
  AroundTest() {
    Host_.Disk.Put("/summitslist.csv", std::string(Summits));
    Host_.Disk.Put("/cty.dat", std::string(Countries));
    Host_.Disk.Put("/log.csv", std::string(Log));
  }

  void SetAll() {
    Tab.txtMyPlace.Text = std::string("40.4, -3.7");
    Tab.txtCountryFile.Text = std::string("/cty.dat");
    Tab.txtLogFilesToWatch.Text = std::string("/log.csv; /second.adi");
  }

  ActivationRow Row(const std::string& summit) const {
    ActivationRow row;
    row.Number = 7;
    row.Who = {"G4ABC/P", "G4ABC", summit, "", 0};
    const auto now = UTCNow(Host_.Time);
    row.Facts.Hearings = {{now, 14.062F, "CW", "W1AA-#", 20, 22}, {now, 14.062F, "CW", "DL1AA-#", 9, 22}};
    return row;
  }

  test::TestHost Host_;
  PlacesTab Tab;
  Surroundings Around{Host_.World, Tab};
};

TEST_F(AroundTest, SaysWhatIsMissing) {
  Around.Start(Board());
  const auto around = Around.Of(Row("G/LD-003"));
  EXPECT_FALSE(around.DistanceInKm || around.ActivationCount || around.IsNeeded);
  EXPECT_EQ(around.Continents + around.Needed + around.SummitName, "");
  for (const auto column : {BoardColumn::Distance, BoardColumn::Activations, BoardColumn::Continents,
                            BoardColumn::Needed, BoardColumn::Bearing})
    EXPECT_NE(Around.Missing(column), "") << static_cast<int>(column);
  EXPECT_EQ(Around.Missing(BoardColumn::State), "");
  EXPECT_FALSE(MapOf(Board(), Around, {}, 0));
  Tab.txtMyPlace.Text = std::string("somewhere");
  EXPECT_TRUE(Tab.lblMyPlace.Caption.Get().starts_with("This is neither a locator"));
}

TEST_F(AroundTest, KnowsASummitItsSkimmersAndTheLog) {
  SetAll();
  Around.Start(Board());
  Around.ImportSummits("/summitslist.csv");
  EXPECT_EQ(Tab.lblSummits.Caption.Get(),
            "2 summits. Last import: 1 broken record is left out: line 5: fewer columns than the header");
  const auto around = Around.Of(Row("G/LD-003"));
  EXPECT_NEAR(around.DistanceInKm.value_or(0), 1571, 2);
  EXPECT_NEAR(around.BearingInDegrees.value_or(0), 2, 1);
  EXPECT_EQ(around.ActivationCount, 321);
  EXPECT_EQ(around.SummitName + " " + std::to_string(around.Points), "Helvellyn 8");
  EXPECT_EQ(around.Continents, "EU, NA");
  EXPECT_EQ(Around.Missing(BoardColumn::Distance), "");
  const auto other = Around.Of(Row("OE/TI-123"));
  EXPECT_EQ(other.Needed, "new association, new summit");
  EXPECT_TRUE(other.IsNeeded);
  EXPECT_FALSE(other.DistanceInKm);
  EXPECT_NE(Host_.EventLog().find("/log.csv: 1 broken record is left out: line 2"), std::string::npos);
  EXPECT_NE(Host_.EventLog().find("/second.adi: the file cannot be read"), std::string::npos);
}

TEST_F(AroundTest, FollowsALogThatGrows) {
  SetAll();
  Around.Start(Board());
  Tab.chkAlarmOnlyNeeded.Value = true;
  Spot spot;
  spot.stationBaseCallsign = "OE5XYZ";
  spot.SummitDesignator = "OE/TI-123";
  EXPECT_TRUE(Around.SoundQuestion()(spot));
  int changes = 0;
  const auto watch = Around.Changed.WhenRaised([&] { ++changes; });
  Host_.Disk.Put("/second.adi", "<EOH><CALL:6>OE5XYZ<QSO_DATE:8>" +
                                    CompactMinutesText(UTCNow(Host_.Time)).substr(0, 8) +
                                    "<SOTA_REF:9>OE/TI-123<EOR>");
  Host_.Queue.RunFor(Milliseconds(6000));
  EXPECT_GE(changes, 1);
  EXPECT_FALSE(Around.SoundQuestion()(spot));
  Tab.chkAlarmOnlyNeeded.Value = false;
  EXPECT_FALSE(Around.SoundQuestion());
}

TEST_F(AroundTest, KeepsTheSummitsItHasWhenAnImportFails) {
  Around.Start(Board());
  Around.ImportSummits("/summitslist.csv");
  for (const std::string path : {"/cty.dat", "/none.csv"}) {
    Around.ImportSummits(path);
    EXPECT_TRUE(Tab.lblSummits.Caption.Get().starts_with("2 summits. Last import: t")) << path;
    EXPECT_TRUE(Around.PlaceOfSummit("G/LD-003")) << path;
  }
}

TEST_F(AroundTest, MapsTheLiveActivationsThatHaveAPlace) {
  SetAll();
  Around.Start(Board());
  Around.ImportSummits("/summitslist.csv");
  Board board;
  const auto now = UTCNow(Host_.Time);
  for (const std::string summit : {"G/LD-003", "OE/TI-123"})
    board.Take({now, SotawatchSpotRead{{"G4ABC/P", "A" + summit, summit, "", 0},
                                       {"1", now, 14.062F, "CW", "", "G4ABC", true, false}}});
  const auto map = MapOf(board, Around, now, 1);
  ASSERT_TRUE(map);
  ASSERT_EQ(map->Contents.Activations.size(), 1U);
  EXPECT_EQ(map->Contents.Activations[0].Label, "G4ABC/P on G/LD-003");
  EXPECT_EQ(map->WithoutPlace, 1U);
  EXPECT_EQ(map->Contents.SelectedId, "1");
}

TEST(BandActivity, CountsTheKeptEvents) {
  test::MemoryStore store;
  EventWriter writer;
  const auto start = *DateTimeFromCalendar({2026, 11, 26, 12, 0, 0});
  const auto keep = [&](int minute, BoardEvent event) {
    const auto when = AddMinutes(start, minute);
    store.Events.push_back({when, writer.Write({when, std::move(event)})});
  };
  const auto hear = [&](int minute, float mhz) {
    keep(minute, SkimmerHeard{"G4ABC/P", "G4ABC", {AddMinutes(start, minute), mhz, "CW", "DL1AA", 20, 22}});
  };
  const auto spot = [&](int minute, const std::string& id) {
    keep(minute, SotawatchSpotRead{{"G4ABC/P", "G4ABC", "G/LD-003", "", 0},
                                   {id, AddMinutes(start, minute), 7.032F, "CW", "", "G4ABC", true, false}});
  };
  hear(0, 14.062F);
  hear(100, 14.062F);
  hear(119, 14.062F);
  hear(110, 3.532F);
  spot(90, "1");
  spot(110, "2");
  spot(112, "2");  // was edited
  spot(115, "3");
  keep(116, SotawatchSpotTakenBack{"G4ABC", "3"});
  BandActivity activity;
  const auto now = AddSeconds(AddMinutes(start, 120), 20);
  int reads = 1;
  while (activity.ReadOn(store, now)) ++reads;
  EXPECT_EQ(reads, 24);
  const std::pair<int, std::string> expected[] = {
      {1,
       "80m: 1 by skimmers, 0 on Sotawatch; 40m: 0 by skimmers, 2 on Sotawatch; "
       "20m: 2 by skimmers, 0 on Sotawatch"},
      {24,
       "80m: 1 by skimmers, 0 on Sotawatch; 40m: 0 by skimmers, 2 on Sotawatch; "
       "20m: 3 by skimmers, 0 on Sotawatch"}};
  for (const auto& [hours, words] : expected)
    EXPECT_EQ(BandTableWords(activity.Count(hours)), words) << hours;
  const auto table = activity.Count(1);
  EXPECT_EQ(BandPartWords(table, table.Bands[2], BandParts - 1),
            "20m, 13:57 to 14:00 UTC: 1 by skimmers, 0 on Sotawatch");
  EXPECT_FALSE(activity.ReadOn(store, now));
}

TEST(SummitsInTheDatabase, OutliveTheProgramAndAreReplacedWhole) {
  const test::TemporaryFolder folder;
  const test::TestClock clock;
  const auto path = folder.In("brelwin.db");
  const std::vector<KeptSummit> first = {{"G/LD-003", "Helvellyn", 54.53, -3.02, 8, 3}};
  const std::vector<KeptSummit> second = {{"OE/TI-123", "Klammspitze", {}, {}, 6, 4}};
  const std::vector<std::string> codes = {"G/LD-003", "OE/TI-123"};
  {
    SqliteActivationStore store(path, clock);
    store.BeginSummits();
    store.AddSummits(first);
    store.EndSummits();
    store.BeginSummits();
    store.AddSummits(second);  // without an end
  }
  SqliteActivationStore store(path, clock);
  std::vector<KeptSummit> found;
  EXPECT_EQ(store.LoadSummits(codes, found).Words, "");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].Name, "Helvellyn");
  EXPECT_EQ(found[0].Longitude, -3.02);
  store.BeginSummits();
  store.AddSummits(second);
  store.EndSummits();
  std::int64_t count = 0;
  store.CountSummits(count);
  EXPECT_EQ(count, 1);
  found.clear();
  store.LoadSummits(codes, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_FALSE(found[0].Latitude);
}

}  // namespace
}  // namespace brelwin
