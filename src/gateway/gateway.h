// What the gateway works with: the screen, the settings, the lists, and what it keeps of its own.
#pragma once

#include <cstdint>
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

// The gateway as the user has set it: its numbers and sound, and who sends, as what, and whose spots.
struct GatewayValues {
  std::int32_t MaxDupeAgeMinutes = 30;
  std::int32_t DelaySeconds = 0;                         // before the final check
  std::int32_t MinSecondsBetweenSpotsOfSameStation = 5;  // seconds
  std::string SoundFile;
  bool PlaySoundOnSuccess = false;
  bool PlaySoundOnDupe = false;
};

// The values of the tab: an age below 1 minute counts as 30, a negative delay as 0, an interval below 5
// seconds as 5.
GatewayValues GatewayValuesFromScreen(const GatewayTab& tab);

struct GatewaySender {
  bool HearsStream = false;  // the Reverse Beacon Network is switched on
  bool SendsEveryone = false;
  bool SendsMine = false;
  std::string Login;
  std::string Password;
  std::string OwnBaseCallsign;
  std::string CommentTemplate;

  bool IsSwitchedOn() const {
    return HearsStream && (SendsEveryone || (SendsMine && !OwnBaseCallsign.empty()));
  }
  bool HasLogin() const { return !Login.empty() && !Password.empty(); }
};

GatewaySender SenderFromScreen(const GatewayTab& tab, const RBNTab& rbn);

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
