// Looking through Sotawatch spots, newest first, for one that already says what a new spot would say.
#pragma once

#include <cstdint>

#include "platform/clock.h"
#include "spots/spot.h"

namespace brelwin {

enum class DupeFinding : std::uint8_t {
  NoneFound,
  NoCollection,   // there is nothing to look through
  NotAsked,       // what there is to look through may not be asked for
  NoSpots,        // what there is to look through is empty
  TooOld,         // the rest is older than a duplicate can be
  OtherBand,      // the station has changed bands since
  SameKey,        // the same station on the same frequency
  OptedOut,       // the station has asked not to be sent
  NearFrequency,  // the same station and band, less than 1 kHz away
};

struct DupeSearch {
  DupeFinding Finding = DupeFinding::NoneFound;
  SpotPointer Other;  // the spot that ended the search; null when none did
};

// How old, in whole elapsed minutes, a spot may be to count as a duplicate, and the moment to count from.
// Spots without a time have no age.
struct DupeAge {
  Instant Now;
  std::int64_t MaximumMinutes = 0;
};

// The first check: an equal duplicate key among the spots last received. Skimmer spots do not count.
DupeSearch SearchCurrentSpots(const SpotCollection* current, const Spot& spot, DupeAge age);

// The final check: an equal duplicate key among freshly read spots, which are keyed by it, or else a
// frequency less than 1 kHz away.
DupeSearch SearchFeedSpots(const SpotCollection& feed, const Spot& spot, DupeAge age);

// By the 7-digit decimals that spots and feeds write; never negative.
std::int64_t DistanceInHertz(float oneInMhz, float otherInMhz);

}  // namespace brelwin
