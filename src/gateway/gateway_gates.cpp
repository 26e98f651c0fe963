#include "gateway/gateway_gates.h"

#include "gateway/gateway.h"
#include "gateway/spotlite_submission.h"
#include "radio/callsign.h"

namespace brelwin {

void ExcludeActivator(CallsignCollection& excluded, std::string_view entry) {
  excluded.Add(std::string(entry), GetBaseCallsign(entry));
  const auto callsign = entry.substr(0, entry.find_first_of(" \t&,;"));
  for (const auto& form : CallsignForms(callsign)) excluded.Add(std::string(entry), form);
}

std::string ExcludingEntry(const CallsignCollection& excluded, const Spot& spot) {
  if (excluded.Empty()) return {};
  if (const auto* entry = excluded.Find(spot.stationBaseCallsign)) return *entry;
  for (const auto& form : CallsignForms(spot.Station)) {
    if (const auto* entry = excluded.Find(form)) return *entry;
  }
  return {};
}

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

GatewayFacts FactsOfNow(const Gateway& gateway, const Spot& spot, const PassBeginning& beginning) {
  const auto sender = SenderFromScreen(gateway.Tab, gateway.RBN);
  GatewayFacts facts;
  facts.IsGatewaySpot = IsGatewaySpot(spot);
  facts.IsFromBeforeAStall = gateway.Stalls.HasStalledSince(beginning.HeardSince, gateway.World.Time.Now());
  facts.IsSwitchedOn = sender.IsSwitchedOn();
  facts.HasLogin = sender.HasLogin();
  facts.ExcludedBy = ExcludingEntry(gateway.ExcludedActivators, spot);
  facts.IsOwnStation = spot.stationBaseCallsign == sender.OwnBaseCallsign;
  facts.SendsEveryone = sender.SendsEveryone;
  facts.WasForEveryone = beginning.WasForEveryone;
  facts.WindowReference = spot.WindowReference;
  return facts;
}

bool MayGo(const Gateway& gateway, const Spot& spot, const PassBeginning& beginning) {
  return DecideGatewaySpot(FactsOfNow(gateway, spot, beginning)).Decision ==
         GatewayDecision::LookAtCurrentSpots;
}

}  // namespace brelwin
