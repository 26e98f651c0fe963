// What the gateway works with: the screen, the settings, the lists, and what it keeps of its own.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/screen.h"
#include "gateway/gateway_journal.h"
#include "gateway/http_control.h"
#include "gateway/posted_spots.h"
#include "platform/host.h"
#include "platform/stall_watch.h"
#include "settings/configuration.h"
#include "spots/service_client.h"
#include "spots/spot.h"

namespace brelwin {

// Lives as long as the program. The last six are its own.
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
  std::function<void(const Spot& spot, bool wasSent, std::string_view words)> Decided{};  // may be empty
  std::vector<std::string> TooOld{};  // keys of the latest pass's spots from before the program stood still
};

}  // namespace brelwin
