#include "gateway/gateway_facts.h"

#include "gateway/exclusion.h"
#include "gateway/gateway_sender.h"
#include "gateway/rbn_spot_submission.h"

namespace brelwin {

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
