#include "gateway/gateway_values.h"

#include <algorithm>

#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {

GatewayValues GatewayValuesFromScreen(const GatewayTab& tab, NumberFormat format) {
  GatewayValues values;
  const auto age = WholeNumber(tab.txtSotawatchDupeSpotMaxAgeInMinutes.Text.Get(), format);
  if (age >= 1) values.MaxDupeAgeMinutes = age;
  values.DelaySeconds =
      std::max(0, WholeNumber(tab.txtGatewayDelayBeforeFinalDupeCheckAndSend.Text.Get(), format));
  values.MinSecondsBetweenSpotsOfSameStation =
      std::max(5, WholeNumber(tab.txtGatewayMinimumSecondsBetweenSpotsOfSameStation.Text.Get(), format));
  values.SoundFile = Trim(tab.txtGatewaySound.Text.Get());
  values.PlaySoundOnSuccess = tab.chkGatewayPlaySoundSpotSentSuccessfully.Value;
  values.PlaySoundOnDupe = tab.chkGatewayPlaySoundSpotIsDupe.Value;
  return values;
}

}  // namespace brelwin
