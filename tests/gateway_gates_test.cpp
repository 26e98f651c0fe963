// The gates of the gateway and the searches for duplicates behind them.
#include "gateway/gateway_gates.h"

#include <gtest/gtest.h>

#include "gateway_story.h"

namespace brelwin {
namespace {

using test::GatewayStory;
using test::ListedSpot;

TEST(GatewayGates, DecideInTheirOrder) {
  const GatewayFacts good{.IsGatewaySpot = true,
                          .IsExcluded = false,
                          .IsOwnStation = false,
                          .SendsEveryone = true,
                          .InCurrentSpots = DupeFinding::NoneFound,
                          .InFeed = DupeFinding::NoneFound,
                          .SecondsSinceLastSent = 600,
                          .MinimumSecondsBetweenSpots = 600};
  const auto verdictWith = [&](auto change) {
    auto facts = good;
    change(facts);
    return DecideGatewaySpot(facts);
  };
  using Decision = GatewayDecision;
  using Reason = GatewayReason;
  using Facts = GatewayFacts;
  using Verdict = GatewayVerdict;
  EXPECT_EQ(DecideGatewaySpot(good), (Verdict{Decision::Send, Reason::None}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.IsGatewaySpot = false; }),
            (Verdict{Decision::PassOver, Reason::NoGatewaySpot}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.IsExcluded = true, facts.InCurrentSpots = {}; }),
            (Verdict{Decision::Refuse, Reason::ExcludedActivator}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.SendsEveryone = false, facts.InCurrentSpots = {}; }),
            (Verdict{Decision::Refuse, Reason::OtherStation}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.SendsEveryone = false, facts.IsOwnStation = true; }),
            (Verdict{Decision::Send, Reason::None}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.InCurrentSpots = {}, facts.InFeed = {}; }),
            (Verdict{Decision::LookAtCurrentSpots, Reason::None}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.InFeed = {}, facts.SecondsSinceLastSent = 0; }),
            (Verdict{Decision::LookAtFeed, Reason::None}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.SecondsSinceLastSent = 599; }),
            (Verdict{Decision::Refuse, Reason::SentTooRecently}));
  EXPECT_EQ(verdictWith([](Facts& facts) { facts.SecondsSinceLastSent = {}; }),
            (Verdict{Decision::Send, Reason::None}));

  const auto verdictOf = [&](DupeFinding current, DupeFinding feed) {
    return verdictWith([&](Facts& facts) { facts.InCurrentSpots = current, facts.InFeed = feed; });
  };
  using enum DupeFinding;
  const Verdict send{Decision::Send, Reason::None};
  for (const auto finding : {NoneFound, NoSpots, TooOld, OtherBand})
    EXPECT_EQ(verdictOf(finding, NoneFound), send);
  for (const auto finding : {NoneFound, NoSpots, TooOld, OtherBand})
    EXPECT_EQ(verdictOf(TooOld, finding), send);
  EXPECT_EQ(verdictOf(NoCollection, NoneFound), (Verdict{Decision::Abort, Reason::NoCurrentSpots}));
  EXPECT_EQ(verdictOf(SameKey, NoneFound), (Verdict{Decision::Refuse, Reason::DuplicateInCurrentSpots}));
  EXPECT_EQ(verdictOf(NoSpots, NoSpots), (Verdict{Decision::Abort, Reason::NoSpotsAnywhere}));
  EXPECT_EQ(verdictOf(NoSpots, SameKey), (Verdict{Decision::Refuse, Reason::DuplicateInFeed}));
  EXPECT_EQ(verdictOf(OtherBand, NearFrequency), (Verdict{Decision::Refuse, Reason::NearFrequencyInFeed}));
}

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
      {{{"G4ABC", "14.063", 10}}, NoneFound, NoneFound},
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

TEST(DuplicateSearch, MeasuresFrequenciesByTheirDecimals) {
  EXPECT_EQ(DistanceInHertz(14.062F, 14.063F), 1000);  // the doubles behind them are closer
  EXPECT_EQ(DistanceInHertz(14.0621F, 14.063F), 900);
  EXPECT_EQ(DistanceInHertz(0.1357F, 0.1363F), 600);
  EXPECT_EQ(DistanceInHertz(10368.12F, 10368.12F), 0);
  EXPECT_EQ(DistanceInHertz(145.525F, 144.3F), 1225000);
}

}  // namespace
}  // namespace brelwin
