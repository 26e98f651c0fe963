// What decides for the window: where it goes, which lines a search finds, and which spots a narrowed list has.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace brelwin
