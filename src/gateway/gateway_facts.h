// What is known of a spot at this moment without looking at others: the state of the screen, the list of the
// excluded, and whether the spot is too old to be sent.
#pragma once

#include "gateway/gateway.h"
#include "gateway/gateway_gates.h"

namespace brelwin {

// What a pass of the gateway began with.
struct PassBeginning {
  bool WasForEveryone = false;
  Instant HeardSince;  // when the connection was made on which its spots were heard
};

GatewayFacts FactsOfNow(const Gateway& gateway, const Spot& spot, const PassBeginning& beginning);

// Whether the spot would be sent as far as these facts go. It changes with a click, so it is asked wherever
// something was waited for.
bool MayGo(const Gateway& gateway, const Spot& spot, const PassBeginning& beginning);

}  // namespace brelwin
