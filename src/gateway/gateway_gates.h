// Whether a skimmer's spot is sent on to Sotawatch: the gates in their order, as one pure function. What has
// not been looked at yet is asked for, so that waiting and fetching stay outside.
#pragma once

#include <cstdint>
#include <optional>

#include "gateway/duplicate_search.h"

namespace brelwin {

struct GatewayFacts {
  bool IsGatewaySpot = false;
  bool IsExcluded = false;
  bool IsOwnStation = false;
  bool SendsEveryone = false;
  std::optional<DupeFinding> InCurrentSpots;         // empty: not looked yet
  std::optional<DupeFinding> InFeed;                 // empty: not looked yet
  std::optional<std::int64_t> SecondsSinceLastSent;  // of the same station; empty: never
  std::int64_t MinimumSecondsBetweenSpots = 0;
};

enum class GatewayDecision : std::uint8_t { PassOver, LookAtCurrentSpots, LookAtFeed, Send, Refuse, Abort };

enum class GatewayReason : std::uint8_t {
  None,
  NoGatewaySpot,
  ExcludedActivator,
  OtherStation,
  NoCurrentSpots,  // there is no collection of them
  DuplicateInCurrentSpots,
  NoSpotsAnywhere,  // neither held nor in the feed: duplicates cannot be told
  DuplicateInFeed,
  NearFrequencyInFeed,
  SentTooRecently,
};

struct GatewayVerdict {
  GatewayDecision Decision = GatewayDecision::PassOver;
  GatewayReason Reason = GatewayReason::None;

  bool operator==(const GatewayVerdict&) const = default;
};

// The verdict on one spot by what is known. Refuse concerns this spot, Abort the rest of the cycle as well.
GatewayVerdict DecideGatewaySpot(const GatewayFacts& facts);

// Whether the station was sent less than the minimum ago.
bool IsSentTooRecently(const GatewayFacts& facts);

}  // namespace brelwin
