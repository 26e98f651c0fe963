// The gateway as the user has set it: its numbers and sound, and who sends, as what, and whose spots.
#pragma once

#include <cstdint>
#include <string>

#include "controls/screen.h"

namespace brelwin {

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

}  // namespace brelwin
