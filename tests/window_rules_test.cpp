// What decides for the window: where it goes, which lines a search finds, which spots a narrowed list has,
// and what a spot's menu does to the lists of callsigns.
#include <gtest/gtest.h>

#include "cycle/callsign_lists.h"
#include "spot_builder.h"
#include "test_host.h"
#include "ui/list_reading.h"
#include "ui/window_place.h"

namespace brelwin {
namespace {

TEST(WindowPlace, IsReadBackAndOnlyInItsOwnForm) {
  for (const auto& place : {WindowPlace{{-1200, 40, 900, 600}, false}, WindowPlace{{0, 0, 1, 1}, true}})
    EXPECT_EQ(ReadWindowPlace(WindowPlaceText(place)), place);
  for (const char* text : {"", "1,2,3", "1,2,0,4", "1,2,3,-4", "1,2,3,4x", "1,2,3,4,5", "1,2,3,4,maximised,",
                           "1,2,99999999999,4", "1,2,200000,4", ",,,"})
    EXPECT_EQ(ReadWindowPlace(text), std::nullopt) << text;
}

TEST(WindowPlace, IsPutBackOntoAScreenThatExists) {
  const Rectangle main{0, 0, 1000, 800};
  const Rectangle left{-1000, 0, 1000, 800};
  struct Case {
    Rectangle Wanted;
    std::vector<Rectangle> Screens;
    Rectangle Given;
  };
  const Case cases[] = {
      {{100, 100, 600, 400}, {main}, {100, 100, 600, 400}},
      {{-300, 100, 600, 400}, {main, left}, {-300, 100, 600, 400}},  // over both
      {{-700, 100, 600, 400}, {main}, {0, 100, 600, 400}},           // its screen is gone
      {{-400, 700, 600, 400}, {main, left}, {-600, 400, 600, 400}},  // hangs out below
      {{900, -50, 600, 400}, {main}, {400, 0, 600, 400}},
      {{100, 100, 3000, 2000}, {main}, main},
      {{-5000, -5000, 600, 400}, {main, left}, {0, 0, 600, 400}},
      {{100, 100, 600, 400}, {}, {100, 100, 600, 400}},
  };
  for (const auto& [wanted, screens, given] : cases)
    EXPECT_EQ(FitOntoScreens(wanted, screens), given) << wanted.Left << "," << wanted.Top;
}

TEST(ListSearch, GoesFromLineToLineAndRoundTheEnds) {
  const std::vector<std::string> lines = {"G4ABC", "DL1XYZ", "g4abc/p", "W6ABC", "Ort in G4"};
  const auto find = [&](std::string_view text) {
    return LinesWith(text, lines.size(), [&](std::size_t line) { return lines[line]; });
  };
  const auto found = find("g4");
  EXPECT_EQ(found, (std::vector<std::size_t>{0, 2, 4}));
  struct Case {
    std::size_t From;
    SearchStep Step;
    std::size_t Place;
  };
  for (const auto& [from, step, place] : {Case{0, SearchStep::Stay, 0},
                                          {1, SearchStep::Stay, 1},
                                          {0, SearchStep::Next, 1},
                                          {3, SearchStep::Next, 2},
                                          {4, SearchStep::Next, 0},
                                          {4, SearchStep::Previous, 1},
                                          {3, SearchStep::Previous, 1},
                                          {0, SearchStep::Previous, 2},
                                          {9, SearchStep::Stay, 0}})
    EXPECT_EQ(StepTo(found, from, step), place) << from;
  EXPECT_EQ(StepTo(find("Q0"), 0, SearchStep::Next), std::nullopt);
  EXPECT_EQ(SearchWords(found, 4) + SearchWords(found, 3) + SearchWords(find(""), 0),
            "3 of 33 foundnot found");
}

TEST(Narrowing, HasWhatIsTheSameAsInItsSpot) {
  auto abroad = test::MakeSpot("1", "DL/PA3XYZ/P", "DM/BW-042");
  auto home = test::MakeSpot("2", "PA3XYZ", "");
  home.BandInMhz = 1.8F;
  auto gone = test::MakeSpot("3", "G4ABC", "dm/bw-042");
  gone.BandInMhz = 0;
  const auto shown = [&](NarrowBy by, const Spot& spot) {
    const auto narrowing = NarrowingTo(by, spot);
    if (!narrowing) return std::string("none");
    auto words = NarrowingWords(*narrowing) + ":";
    for (const auto& each : {abroad, home, gone})
      if (IsWithin(*narrowing, each)) words += each.ID;
    return words;
  };
  EXPECT_EQ(shown(NarrowBy::Station, home), "station PA3XYZ:12");
  EXPECT_EQ(shown(NarrowBy::Summit, abroad), "summit DM/BW-042:13");
  EXPECT_EQ(shown(NarrowBy::Summit, home), "none");
  EXPECT_EQ(shown(NarrowBy::Band, home), "band 1.8 MHz:2");
  EXPECT_EQ(shown(NarrowBy::Band, gone), "none");
}

// What the file holds, what the list holds already, and what comes of the spot of DL/PA3XYZ/P by K6ABC.
TEST(CallsignLists, TakeWhatIsChosenOnceAndTellIt) {
  auto spot = test::MakeSpot("1", "DL/PA3XYZ/P", "DM/BW-042");
  spot.stationBaseCallsign = "DLA3XYZ";
  spot.SpotterBaseCallsign = "K6ABC";
  struct Case {
    CallsignListName Name;
    bool Unwritable;
    std::string File, Before, After;
  };
  const std::string excluded = "SOTAExcludedActivators.txt";
  const Case cases[] = {
      {CallsignListName::Known, false, "SOTAActivators.txt", "", "DLA3XYZ\r\n"},
      {CallsignListName::Trusted, false, "SOTATrustedSpotters.txt", "G4ABC", "G4ABC\r\nK6ABC\r\n"},
      {CallsignListName::Trusted, false, "SOTATrustedSpotters.txt", "K6ABC/P\n", "K6ABC/P\n"},
      {CallsignListName::Excluded, false, excluded, "W6ABC\n", "W6ABC\nDL/PA3XYZ/P\r\n"},
      {CallsignListName::Excluded, false, excluded, "PA3XYZ", "PA3XYZ"},
      {CallsignListName::Excluded, true, excluded, "W6ABC", "W6ABC"},
  };
  for (const auto& [name, isUnwritable, file, before, after] : cases) {
    test::TestHost host;
    if (!before.empty()) host.Disk.Put("/brelwin/" + file, before);
    if (isUnwritable) host.Disk.Unwritable.insert(test::MemoryFiles::Name("/brelwin/" + file));
    CallsignCollection list;
    AddCallsign(host.World, name, list, spot);
    EXPECT_FALSE(list.Empty()) << file;
    EXPECT_NE(host.TakeMessages(), "") << file;
    const auto count = list.Count();
    const auto again = AddCallsign(host.World, name, list, spot);
    EXPECT_EQ(again.ends_with(" already"), !isUnwritable) << again;
    EXPECT_EQ(list.Count(), count);
    EXPECT_EQ(host.Disk.Text("/brelwin/" + file), after);
    EXPECT_EQ(host.Dialogs.Shown.size(), isUnwritable ? 2U : 0U) << file;
    CallsignCollection atNextStart;
    LoadCallsigns(host.World, name, atNextStart);
    const auto then = AddCallsign(host.World, name, atNextStart, spot);
    EXPECT_EQ(then.ends_with(" already"), !isUnwritable) << then;
  }
}

}  // namespace
}  // namespace brelwin
