// The gates of the gateway and the searches for duplicates behind them.
#include "gateway/gateway_gates.h"

#include <gtest/gtest.h>

#include "gateway_story.h"

namespace brelwin {
namespace {

using test::GatewayStory;
using test::ListedSpot;

struct SearchCase {
  std::vector<ListedSpot> Held;  // newest first
  DupeFinding Current;
  DupeFinding Feed;
};

// For a spot of G4ABC on 14.062 with a maximum age of 30 minutes.
TEST(DuplicateSearch, EndsAtTheFirstSpotThatSettlesIt) {
  using enum DupeFinding;
  const std::vector<SearchCase> cases{
      {{}, NoSpots, NoSpots},
      {{{"HB9XYZ", "14.062", 1}}, NoneFound, NoneFound},
      {{{"G4ABC", "14.062", 10}}, SameKey, SameKey},
      {{{"G4ABC", "14.062", 30}}, SameKey, SameKey},
      {{{"G4ABC", "14.0614", 10}}, NoneFound, NearFrequency},
      {{{"G4ABC", "14.063", 10}}, NoneFound, NoneFound},  // 1 kHz, though the doubles are closer
      {{{"G4ABC", "7.032", 5}, {"G4ABC", "14.0626", 10}}, OtherBand, OtherBand},
      {{{"G4ABC", "14.070", 5}, {"G4ABC", "14.0621", 10}}, SameKey, SameKey},
      {{{"G4ABC", "14.070", 5}, {"G4ABC", "14.0626", 10}}, NoneFound, NearFrequency},
      {{{"HB9XYZ", "7.032", 31}, {"G4ABC", "14.0626", 10}}, TooOld, TooOld},
      {{{"G4ABC", "14.0626", -31}}, TooOld, TooOld},                           // as far in the future
      {{{"G4ABC", "7.032", 5}, {"G4ABC", "14.062", 10}}, OtherBand, SameKey},  // keys come first in the feed
      {{{"G4ABC", "14.0624", 31}}, TooOld, SameKey},
  };
  GatewayStory story;
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  const DupeAge age{story.Time.Now(), 30};
  int number = 0;
  for (const auto& [held, current, feed] : cases) {
    ++number;
    SpotCollection byIdentity;
    SpotCollection byKey;
    for (const auto& item : held) {
      const auto other = story.SotawatchSpot(item);
      byIdentity.Add(other, other->ID);
      byKey.Add(other, other->SpotKey);
    }
    EXPECT_EQ(SearchCurrentSpots(&byIdentity, *spot, age).Finding, current) << number;
    EXPECT_EQ(SearchFeedSpots(byKey, *spot, age).Finding, feed) << number;
  }
  EXPECT_EQ(SearchCurrentSpots(nullptr, *spot, age).Finding, NoCollection);
}

TEST(DuplicateSearch, LetsSpotsWithoutATimeAndSkimmerSpotsBe) {
  GatewayStory story;
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  const DupeAge age{story.Time.Now() + std::chrono::seconds(59), 30};
  SpotCollection current;
  const auto timeless = story.SotawatchSpot({"HB9XYZ", "7.032", 0});
  timeless->TimeOfSpot = {};
  current.Add(timeless, "1");
  current.Add(story.SkimmerSpot("G4ABC", "14.062"), "2");
  EXPECT_EQ(SearchCurrentSpots(&current, *spot, age).Finding, DupeFinding::NoneFound);
  const auto duplicate = story.SotawatchSpot({"G4ABC", "14.0624", 30});  // 30 minutes and 59 seconds ago
  current.Add(duplicate, "3");
  EXPECT_EQ(SearchCurrentSpots(&current, *spot, age).Other, duplicate);
  duplicate->TimeOfSpot = {};
  EXPECT_EQ(SearchCurrentSpots(&current, *spot, age).Other, duplicate);
}

}  // namespace
}  // namespace brelwin
