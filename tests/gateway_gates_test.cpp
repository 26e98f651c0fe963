// The gates in their order: of a spot that everything is against, one thing after the other is mended.
#include "gateway/gateway_gates.h"

#include <gtest/gtest.h>

namespace brelwin {
namespace {

using Decision = GatewayDecision;
using Reason = GatewayReason;

GatewayFacts EverythingAgainstIt() {
  GatewayFacts facts;
  facts.ExcludedBy = "G4ABC";
  facts.WasForEveryone = true;
  facts.IsFromBeforeAStall = true;
  facts.WindowReference = "GM/SS-064";
  facts.MinimumSecondsBetweenSpots = 600;
  facts.SecondsSinceLastSent = 599;
  return facts;
}

TEST(GatewayGates, StandInTheirOrder) {
  const struct {
    GatewayVerdict Verdict;
    void (*Mend)(GatewayFacts&);
  } gates[] = {
      {{Decision::PassOver, Reason::NoGatewaySpot}, [](auto& facts) { facts.IsGatewaySpot = true; }},
      {{Decision::Refuse, Reason::SwitchedOff}, [](auto& facts) { facts.IsSwitchedOn = true; }},
      {{Decision::Refuse, Reason::NoLogin}, [](auto& facts) { facts.HasLogin = true; }},
      {{Decision::Refuse, Reason::ExcludedActivator}, [](auto& facts) { facts.ExcludedBy.clear(); }},
      {{Decision::Refuse, Reason::NarrowedToOwn}, [](auto& facts) { facts.WasForEveryone = false; }},
      {{Decision::Refuse, Reason::OtherStation}, [](auto& facts) { facts.IsOwnStation = true; }},
      {{Decision::Refuse, Reason::StoodStill}, [](auto& facts) { facts.IsFromBeforeAStall = false; }},
      {{Decision::Refuse, Reason::WindowOfReference}, [](auto& facts) { facts.WindowReference.clear(); }},
      {{Decision::LookAtCurrentSpots, Reason::None},
       [](auto& facts) { facts.InCurrentSpots = DupeFinding::NoCollection; }},
      {{Decision::Abort, Reason::NoCurrentSpots},
       [](auto& facts) { facts.InCurrentSpots = DupeFinding::SameKey; }},
      {{Decision::Refuse, Reason::DuplicateInCurrentSpots},
       [](auto& facts) { facts.InCurrentSpots = DupeFinding::NoSpots; }},
      {{Decision::LookAtFeed, Reason::None}, [](auto& facts) { facts.InFeed = DupeFinding::NotAsked; }},
      {{Decision::Abort, Reason::FeedNotAsked}, [](auto& facts) { facts.InFeed = DupeFinding::OptedOut; }},
      {{Decision::Refuse, Reason::OptedOut}, [](auto& facts) { facts.InFeed = DupeFinding::NoSpots; }},
      {{Decision::Abort, Reason::NoSpotsAnywhere}, [](auto& facts) { facts.InFeed = DupeFinding::SameKey; }},
      {{Decision::Refuse, Reason::DuplicateInFeed},
       [](auto& facts) { facts.InFeed = DupeFinding::NearFrequency; }},
      {{Decision::Refuse, Reason::NearFrequencyInFeed},
       [](auto& facts) {
         facts.InFeed = DupeFinding::NoSpots, facts.InCurrentSpots = DupeFinding::NoneFound;
       }},
      {{Decision::Refuse, Reason::SentTooRecently}, [](auto& facts) { facts.SecondsSinceLastSent = 600; }},
  };
  auto facts = EverythingAgainstIt();
  for (const auto& gate : gates) {
    EXPECT_EQ(DecideGatewaySpot(facts), gate.Verdict) << static_cast<int>(gate.Verdict.Reason);
    gate.Mend(facts);
  }
  EXPECT_EQ(DecideGatewaySpot(facts), (GatewayVerdict{Decision::Send, Reason::None}));
}

}  // namespace
}  // namespace brelwin
