// The Reverse Beacon Network side of a check: what skimmers have heard goes to Sotawatch, into the list and
// the logs, and is sounded.
#pragma once

#include <vector>

#include "alerts/alert_collection.h"
#include "controls/screen.h"
#include "cycle/spot_lists.h"
#include "gateway/gateway_processing.h"
#include "platform/host.h"
#include "platform/stall_watch.h"
#include "rbn/connection.h"
#include "rbn/recent_spots.h"
#include "settings/configuration.h"
#include "spots/spot_filter.h"

namespace brelwin {

// The streams of the Reverse Beacon Network, and what was heard on them of late.
struct SkimmerStreams {
  SkimmerStreams(Host& host, Screen& screen, const Configuration& configuration);

  RBNTab& Tab;
  RBNConnection First;
  RBNConnection Second;
  RecentRBNSpots RecentSpots;

  // Those that are listened to: the first one, and the second one where there is to be one.
  std::vector<RBNConnection*> InUse();
};

// What takes the spots of the streams, and what they are matched with.
struct SkimmerSpotTakers {
  Gateway& SpotGateway;
  SpotLists& Lists;
  StallWatch& Stalls;
  const AlertCollection& Alerts;
  const CallsignCollection& KnownActivators;
};

// Takes what the streams have sent, hands the new spots to the gateway and puts them in front of the list. A
// connection that is stale or silent is closed, and where the check found none one attempt is made.
void TakeSkimmerSpots(SkimmerStreams& streams, const SkimmerSpotTakers& takers, SpotFilter& filter);

}  // namespace brelwin
