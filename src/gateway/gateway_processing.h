// The gateway: alert-matched skimmer spots are posted to Sotawatch, unless Sotawatch has an equivalent spot
// or the station was sent too recently.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/gateway_tab.h"
#include "controls/rbn_tab.h"
#include "gateway/gateway_journal.h"
#include "gateway/gateway_values.h"
#include "gateway/posted_spots.h"
#include "gateway/spotlite_transfer.h"
#include "platform/host.h"
#include "platform/stall_watch.h"
#include "settings/configuration.h"
#include "spots/service_client.h"
#include "spots/spot.h"

namespace brelwin {

// What the gateway works with, for as long as the program lives. The last five are its own.
struct Gateway {
  Host& World;
  GatewayTab& Tab;
  RBNTab& RBN;
  const Configuration& Settings;
  const SpotCollection* RecentSotawatchSpots;    // newest first; may be null
  const CallsignCollection& ExcludedActivators;  // filled by ExcludeActivator
  const CallsignCollection& TrustedSpotters;
  CallsignCollection& KnownActivators;
  StallWatch& Stalls;

  // Where the spots come from when that box is ticked; null for one that is never asked.
  const CheckBox* ServiceBox = nullptr;
  ServiceClient* Service = nullptr;

  SpotliteTransfer Transfer{World};
  KeyedCollection<Instant> SentSpotsByStation{};  // when a spot of the base callsign was last sent
  GatewayJournal Journal{};
  PostedSpots Posted{World};
  std::vector<std::string> TooOld{};  // keys of the latest pass's spots from before the program stood still
};

// Takes the spots of this cycle in their order through the gates and posts those that pass. `heardSince` is
// when the connection was made on which they were heard: what was heard before the program stood still is
// refused. Waits, yielding to the event queue, for the delay, the feed and each answer. Boxes, login and
// password count as they are just before each post; what may not go any more is refused without being waited
// for. A quit ends it with nothing posted afterwards. Must not be entered while it is on the stack. Returns 0
// when it looked at no spot (the gateway is off, something is missing, or duplicate filtering had to be
// corrected first), -1 when it went through the spots or gave up for want of spots to compare with, -200 when
// a submission under way did not end in time. `message` is cleared on entry and receives the words of the
// last submission unless that was a success.
std::int32_t PerformGatewayProcessing(Gateway& gateway, const SpotCollection& matchedSpots,
                                      Instant heardSince, const GatewayValues& values, std::string& message);

}  // namespace brelwin
