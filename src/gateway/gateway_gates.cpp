#include "gateway/gateway_gates.h"

namespace brelwin {
namespace {

constexpr GatewayVerdict Refuse(GatewayReason reason) {
  return {GatewayDecision::Refuse, reason};
}
constexpr GatewayVerdict Abort(GatewayReason reason) {
  return {GatewayDecision::Abort, reason};
}

std::optional<GatewayVerdict> DecideByStation(const GatewayFacts& facts) {
  if (!facts.IsGatewaySpot) return GatewayVerdict{GatewayDecision::PassOver, GatewayReason::NoGatewaySpot};
  if (!facts.IsSwitchedOn) return Refuse(GatewayReason::SwitchedOff);
  if (!facts.HasLogin) return Refuse(GatewayReason::NoLogin);
  if (!facts.ExcludedBy.empty()) return Refuse(GatewayReason::ExcludedActivator);
  if (!facts.SendsEveryone && !facts.IsOwnStation)
    return Refuse(facts.WasForEveryone ? GatewayReason::NarrowedToOwn : GatewayReason::OtherStation);
  if (facts.IsFromBeforeAStall) return Refuse(GatewayReason::StoodStill);
  if (!facts.WindowReference.empty()) return Refuse(GatewayReason::WindowOfReference);
  return {};
}

std::optional<GatewayVerdict> DecideByCurrentSpots(const GatewayFacts& facts) {
  if (!facts.InCurrentSpots) return GatewayVerdict{GatewayDecision::LookAtCurrentSpots, GatewayReason::None};
  if (*facts.InCurrentSpots == DupeFinding::NoCollection) return Abort(GatewayReason::NoCurrentSpots);
  if (*facts.InCurrentSpots == DupeFinding::SameKey) return Refuse(GatewayReason::DuplicateInCurrentSpots);
  return {};
}

// An empty feed alone is no reason to hold a spot back: the first check has seen the spots that are held.
std::optional<GatewayVerdict> DecideByFeed(const GatewayFacts& facts) {
  if (!facts.InFeed) return GatewayVerdict{GatewayDecision::LookAtFeed, GatewayReason::None};
  if (*facts.InFeed == DupeFinding::NotAsked) return Abort(GatewayReason::FeedNotAsked);
  if (*facts.InFeed == DupeFinding::OptedOut) return Refuse(GatewayReason::OptedOut);
  if (*facts.InFeed == DupeFinding::NoSpots && *facts.InCurrentSpots == DupeFinding::NoSpots)
    return Abort(GatewayReason::NoSpotsAnywhere);
  if (*facts.InFeed == DupeFinding::SameKey) return Refuse(GatewayReason::DuplicateInFeed);
  if (*facts.InFeed == DupeFinding::NearFrequency) return Refuse(GatewayReason::NearFrequencyInFeed);
  return {};
}

std::optional<GatewayVerdict> DecideByInterval(const GatewayFacts& facts) {
  if (IsSentTooRecently(facts)) return Refuse(GatewayReason::SentTooRecently);
  return {};
}

}  // namespace

bool IsSentTooRecently(const GatewayFacts& facts) {
  return facts.SecondsSinceLastSent && *facts.SecondsSinceLastSent < facts.MinimumSecondsBetweenSpots;
}

GatewayVerdict DecideGatewaySpot(const GatewayFacts& facts) {
  for (const auto gate : {DecideByStation, DecideByCurrentSpots, DecideByFeed, DecideByInterval}) {
    if (const auto verdict = gate(facts)) return *verdict;
  }
  return {GatewayDecision::Send, GatewayReason::None};
}

}  // namespace brelwin
