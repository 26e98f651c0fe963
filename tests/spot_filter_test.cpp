// The user's comma lists, the filter made of them, and what each output receives.
#include "ui/spot_filter.h"

#include <gtest/gtest.h>

#include "spot_builder.h"
#include "test_host.h"
#include "ui/filter_from_screen.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

using test::Collect;
using test::Keys;
using test::MakeSpot;
using Ids = std::vector<std::string>;

TEST(FilterList, MatchesExactValuesAndTrailingStars) {
  struct Case {
    std::string_view List;
    std::string_view Value;
    bool Matches;
  };
  const Case cases[] = {
      {"", "G4ABC", true},
      {"  ", "G4ABC", true},
      {"CW", "", true},
      {"CW", "  ", true},
      {",", "CW", false},
      {" w6* , k6abc ", "W6XYZ", true},
      {"W6*,K6ABC", "k6abc", true},
      {"W6*,K6ABC", "K6ABCD", false},
      {"W6*,K6ABC", "K6AB", false},
      {"W6*6*", "W66A", true},  // every star goes: the prefix is W66
      {"W6*6*", "W6A6", false},
      {"W*6", "W6", false},  // a star that is not the last character is a character
      {"W*6", "w*6", true},
      {"W6 *", "W6XYZ", true},
      {"*", "anything", true},
      {"W6*", "W", false},
      {"10", "1", false},
      {"1*", "12", true},
      {"1.8,14", "1.8", true},
      {"\xC3\xA9*", "\xC3\xA9tude", true},
  };
  for (const auto& [list, value, matches] : cases)
    EXPECT_EQ(MatchesFilterList(list, value), matches) << list << " / " << value;
}

struct FilterTest : ::testing::Test {
  test::TestHost World;
  SpotFilter Filter;
  Screen Controls;

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
  SpotCollection Spots = Collect({MakeSpot("cw", "G4ABC", "G/LD-001"), MakeSpot("ssb", "G4XYZ", "G/LD-002")});

  OutputTest() {
    Spots.Find("ssb")->get()->ModeString = "SSB";
    Filter.mode = "CW";
    Controls.Logs.optLogFormat1.Value = 1;
    Controls.Logs.optLogFormat2.Value = 3;
    Controls.Logs.txtLogFile1.Text = "one.csv";
    Controls.Logs.txtLogFile2.Text = "/logs/two.txt";
    Controls.Logs.chkEnableLogging1.Value = true;
    Controls.Logs.chkEnableLogging2.Value = true;
  }

  void Perform(bool logRawSpots = false) {
    EXPECT_EQ(PerformDisplayFilteringAndSpotLogging(World.World, Controls.Logs, logRawSpots, Filter, Spots),
              -1);
  }
  std::size_t Lines(std::string_view path) { return SplitLines(World.Disk.Text(path)).size(); }
};

TEST_F(OutputTest, GivesEachOutputWhatItAsksFor) {
  Filter.FilterLog2 = true;
  Perform(true);
  EXPECT_EQ(Lines("/brelwin/one.csv"), 2U);
  EXPECT_EQ(Lines("/logs/two.txt"), 1U);
  EXPECT_EQ(Lines("/brelwin/RawSpots.txt"), 2U);
  EXPECT_EQ(Keys(Spots), (Ids{"cw", "ssb"}));  // the display is not filtered
  EXPECT_TRUE(Filter.NoSpotSourceFiltering);

  const auto all = Spots;
  Filter.FilterSpotDisplay = true;
  Perform();
  EXPECT_EQ(Lines("/brelwin/one.csv"), 4U);
  EXPECT_EQ(Lines("/brelwin/RawSpots.txt"), 2U);
  EXPECT_EQ(Keys(Spots), Ids{"cw"});
  EXPECT_FALSE((*all.Find("cw"))->HiddenFromDisplay);
  EXPECT_TRUE((*all.Find("ssb"))->HiddenFromDisplay);
}

TEST_F(OutputTest, WritesALogOnlyWhileItsBoxIsCheckedAndAFileIsNamed) {
  Controls.Logs.chkEnableLogging1.Value = false;
  Controls.Logs.txtLogFile2.Text = "  ";
  Perform();
  Spots.Clear();
  Controls.Logs.chkEnableLogging1.Value = true;
  Perform(true);
  EXPECT_EQ(World.Disk.WriteCalls, 0);
}

TEST_F(FilterTest, IsFilledFromTheScreen) {
  Controls.Filters.txtFilterMode.Text = "CW";
  Controls.Filters.optPlaySoundWhen.Value = 5;
  Controls.Filters.chkFilterAlertSounds.Value = true;
  Controls.RBN.txtRBNFilterSpotterExclude.Text = "W1*";
  Controls.RBN.txtDuplicateSpotFilteringPeriod.Text = "7,5 min";
  Controls.RBN.txtRBNMaxMinutesBeforeAlertTime.Text = "60,5";
  Controls.RBN.txtRBNMaxMinutesAfterAlertTime.Text = "none";
  Configuration configuration;
  configuration.RBNShowAllSpottedTypes = true;
  FillFilterFromScreen(Controls, configuration, NumberFormat{','}, Filter);
  EXPECT_EQ(Filter.mode, "CW");
  EXPECT_EQ(Filter.PlaySoundWhen, 5);
  EXPECT_TRUE(Filter.FilterAlertSounds);
  EXPECT_EQ(Filter.RBNSpotterExclude, "W1*");
  EXPECT_EQ(Filter.DuplicateSpotFilteringPeriod, 7.5);
  EXPECT_EQ(Filter.MaxMinutesBeforeAlertTime, 60);
  EXPECT_EQ(Filter.MaxMinutesAfterAlertTime, 0);
  EXPECT_TRUE(Filter.IncludeAllSpotTypes);
}

}  // namespace
}  // namespace brelwin
