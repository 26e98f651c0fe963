#include "gateway/gateway_values.h"

#include <algorithm>

#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {

GatewayValues GatewayValuesFromScreen(const GatewayTab& tab) {
  GatewayValues values;
  const auto age = WholeNumber(tab.txtSotawatchDupeSpotMaxAgeInMinutes.Text.Get());
  if (age >= 1) values.MaxDupeAgeMinutes = age;
  values.DelaySeconds = std::max(0, WholeNumber(tab.txtGatewayDelayBeforeFinalDupeCheckAndSend.Text.Get()));
  values.MinSecondsBetweenSpotsOfSameStation =
      std::max(5, WholeNumber(tab.txtGatewayMinimumSecondsBetweenSpotsOfSameStation.Text.Get()));
  values.SoundFile = Trim(tab.txtGatewaySound.Text.Get());
  values.PlaySoundOnSuccess = tab.chkGatewayPlaySoundSpotSentSuccessfully.Value;
  values.PlaySoundOnDupe = tab.chkGatewayPlaySoundSpotIsDupe.Value;
  return values;
}

}  // namespace brelwin
