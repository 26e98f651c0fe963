// Whether a skimmer's spot is sent on to Sotawatch: the gates in their order, as one pure function, and the
// facts that they ask for. What has not been looked at yet is asked for, so that waiting and fetching stay
// outside. The user's list of excluded activators reaches them whatever they put around their callsign.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "gateway/duplicate_search.h"
#include "gateway/gateway.h"
#include "spots/spot.h"

namespace brelwin {

// Adds an entry of the list, as the user wrote it, under every callsign that it may stand for.
void ExcludeActivator(CallsignCollection& excluded, std::string_view entry);

// The entry that excludes the spot's station; empty when none does.
std::string ExcludingEntry(const CallsignCollection& excluded, const Spot& spot);

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
