// The user's comma lists, the filter made of them, and what each output receives.
#include "spots/spot_filter.h"

#include <gtest/gtest.h>

#include "controls/screen.h"
#include "spot_builder.h"
#include "test_host.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

using test::Collect;
using test::Keys;
using test::MakeSpot;
using Ids = std::vector<std::string>;

TEST(FilterList, MatchesExactValuesAndTrailingStars) {
  const auto matches = [](std::string_view line) {
    const auto parts = Split(line, "|");
    return MatchesFilterList(parts[0], parts[1]);
  };
  for (const auto* line :
       {"|G4ABC", "  |G4ABC", "CW|", "CW|  ", " w6* , k6abc |W6XYZ", "W6*,K6ABC|k6abc", "W6*6*|W66A",
        "W*6|w*6", "W6 *|W6XYZ", "*|anything", "1*|12", "1.8,14|1.8", "\xC3\xA9*|\xC3\xA9tude"})
    EXPECT_TRUE(matches(line)) << line;
  // Every star of a prefix goes; one that is not the last character of its item is a character.
  for (const auto* line :
       {",|CW", "W6*,K6ABC|K6ABCD", "W6*,K6ABC|K6AB", "W6*6*|W6A6", "W*6|W6", "W6*|W", "10|1"})
    EXPECT_FALSE(matches(line)) << line;
}

struct FilterTest : ::testing::Test {
  test::TestHost World;
  SpotFilter Filter;

  Ids Passed(const SpotCollection& spots) {
    SpotCollection filtered = Collect({MakeSpot("left over", "G4ABC", "")});
    const auto result = Filter.GetFilteredSpots(World.World, spots, filtered);
    EXPECT_EQ(result, spots.Empty() ? 0 : -1);
    return Keys(filtered);
  }
};

TEST_F(FilterTest, TestsEachFieldInItsOwnForm) {
  Filter.NoSpotSourceFiltering = true;
  auto twoMetres = MakeSpot("2", "W6XYZ/P", "G/LD-001");
  twoMetres.BandInMhz = 1.8F;
  twoMetres.SummitPoints = 10;
  twoMetres.ModeString = "FM";
  twoMetres.Spotter = "DL/G4ABC/P";
  const auto spots = Collect({MakeSpot("1", "EA8/G4ABC", "W6/CT-001"), twoMetres});

  const std::pair<std::string SpotFilter::*, std::string_view> lists[] = {
      {&SpotFilter::Station, "w6*"},  {&SpotFilter::SummitReference, "g/*"}, {&SpotFilter::Band, "1.8"},
      {&SpotFilter::mode, "ssb, fm"}, {&SpotFilter::Spotter, "G4ABC"},       {&SpotFilter::Points, "1*"},
  };
  for (const auto& [field, list] : lists) {
    SpotFilter only;
    only.NoSpotSourceFiltering = true;
    only.*field = list;
    Filter = std::move(only);
    EXPECT_EQ(Passed(spots), Ids{"2"}) << list;
  }
}

TEST_F(FilterTest, KeepsOnlyTheSpotSourcesThatWereChosen) {
  auto matched = MakeSpot("matched", "G4ABC", "");
  matched.IsRBNSpot = matched.IsMatchedToAlert = true;
  auto unmatched = MakeSpot("unmatched", "G4ABC", "");
  unmatched.IsRBNSpot = true;
  const auto spots = Collect({MakeSpot("feed", "G4ABC", ""), matched, unmatched});

  EXPECT_EQ(Passed(spots), Ids{});
  EXPECT_EQ(Passed({}), Ids{});
  Filter.AlertSpotSourceRBNMatched = true;
  EXPECT_EQ(Passed(spots), Ids{"matched"});
  Filter.AlertSpotSourceRBNUnmatched = true;
  EXPECT_EQ(Passed(spots), (Ids{"matched", "unmatched"}));
  Filter.AlertSpotSourceRBNMatched = false;
  Filter.AlertSpotSourceSotawatch = true;
  EXPECT_EQ(Passed(spots), (Ids{"feed", "unmatched"}));
  Filter.NoSpotSourceFiltering = true;
  EXPECT_EQ(Passed(spots), (Ids{"feed", "matched", "unmatched"}));
}

struct OutputTest : FilterTest {
  LogsTab Logs;
  SpotCollection Spots = Collect({MakeSpot("cw", "G4ABC", "G/LD-001"), MakeSpot("ssb", "G4XYZ", "G/LD-002")});

  OutputTest() {
    Spots.Find("ssb")->get()->ModeString = "SSB";
    Filter.mode = "CW";
    Logs.optLogFormat1.Value = 1;
    Logs.optLogFormat2.Value = 3;
    Logs.txtLogFile1.Text = "logs\\one.csv";
    Logs.txtLogFile2.Text = "/logs/two.txt";
    Logs.chkEnableLogging1.Value = true;
    Logs.chkEnableLogging2.Value = true;
  }

  void Perform(bool logRawSpots = false) {
    EXPECT_EQ(PerformDisplayFilteringAndSpotLogging(World.World, Logs, logRawSpots, Filter, Spots), -1);
  }
  std::size_t Lines(std::string_view path) { return SplitLines(World.Disk.Text(path)).size(); }
};

TEST_F(OutputTest, GivesEachOutputWhatItAsksFor) {
  Filter.FilterLog2 = true;
  Perform(true);
  EXPECT_EQ(Lines("/brelwin/logs/one.csv"), 2U);
  EXPECT_EQ(Lines("/logs/two.txt"), 1U);
  EXPECT_EQ(Lines("/brelwin/RawSpots.txt"), 2U);
  EXPECT_EQ(Keys(Spots), (Ids{"cw", "ssb"}));  // the display is not filtered
  EXPECT_TRUE(Filter.NoSpotSourceFiltering);

  const auto all = Spots;
  Filter.FilterSpotDisplay = true;
  Perform();
  EXPECT_EQ(Lines("/brelwin/logs/one.csv"), 4U);
  EXPECT_EQ(Lines("/brelwin/RawSpots.txt"), 2U);
  EXPECT_EQ(Keys(Spots), Ids{"cw"});
  EXPECT_FALSE((*all.Find("cw"))->HiddenFromDisplay);
  EXPECT_TRUE((*all.Find("ssb"))->HiddenFromDisplay);
}

}  // namespace
}  // namespace brelwin
