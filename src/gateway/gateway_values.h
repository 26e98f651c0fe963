// The gateway's numbers and sound, as the user has set them.
#pragma once

#include <cstdint>
#include <string>

#include "controls/gateway_tab.h"

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

}  // namespace brelwin
