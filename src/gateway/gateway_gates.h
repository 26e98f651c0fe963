// Whether a skimmer's spot is sent on to Sotawatch: the gates in their order, as one pure function. What has
// not been looked at yet is asked for, so that waiting and fetching stay outside.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "gateway/duplicate_search.h"

namespace brelwin {

struct GatewayFacts {
  bool IsGatewaySpot = false;
  bool IsFromBeforeAStall = false;  // heard on a connection on which the program has stood still
  bool IsSwitchedOn = false;
  bool HasLogin = false;
  std::string ExcludedBy;  // the entry of the list; empty: nobody is against it
  bool IsOwnStation = false;
  bool SendsEveryone = false;
  bool WasForEveryone = false;                       // when the pass began
  std::string WindowReference;                       // see Spot
  std::optional<DupeFinding> InCurrentSpots;         // empty: not looked yet
  std::optional<DupeFinding> InFeed;                 // empty: not looked yet
  std::optional<std::int64_t> SecondsSinceLastSent;  // of the same station; empty: never
  std::int64_t MinimumSecondsBetweenSpots = 0;
};

enum class GatewayDecision : std::uint8_t { PassOver, LookAtCurrentSpots, LookAtFeed, Send, Refuse, Abort };

enum class GatewayReason : std::uint8_t {
  None,
  NoGatewaySpot,
  StoodStill,  // the program did, after the spot may have been heard
  SwitchedOff,
  NoLogin,
  ExcludedActivator,
  OtherStation,
  NarrowedToOwn,      // another station, and the user has switched to his own after the pass began
  WindowOfReference,  // it matches by a marker that is a part of a summit's reference
  NoCurrentSpots,     // there is no collection of them
  DuplicateInCurrentSpots,
  OptedOut,
  FeedNotAsked,     // the service wants to be left alone, or its terms are not confirmed
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
