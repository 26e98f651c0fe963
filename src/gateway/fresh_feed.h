// The Sotawatch spots of this moment, for the final check: a duplicate, or the activator's wish not to be
// sent.
#pragma once

#include <vector>

#include "gateway/duplicate_search.h"
#include "gateway/gateway.h"

namespace brelwin {

struct FreshFeed {
  SpotCollection ByKey;          // the newest of each station and frequency, newest first
  std::vector<SpotPointer> All;  // but this gateway's own posts, newest first
  bool MayBeAsked = true;        // else the service wants to be left alone, or its terms are not confirmed
};

// Reads the source in use, waiting for it; as far back as duplicates count. Empty when it cannot be read.
FreshFeed ReadFreshFeed(Gateway& gateway, std::int32_t maximumAgeInMinutes);

// Whether the feed speaks against the spot. The station's latest word counts: a self-spot or a spot by a
// trusted spotter, under any form of its callsign.
DupeSearch SearchFeed(const FreshFeed& feed, const Spot& spot, DupeAge age);

}  // namespace brelwin
