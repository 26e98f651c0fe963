#include "gateway/gateway.h"

#include <algorithm>

#include "base/text.h"
#include "radio/callsign.h"
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

GatewaySender SenderFromScreen(const GatewayTab& tab, const RBNTab& rbn) {
  GatewaySender sender;
  sender.HearsStream = rbn.chkReverseBeaconSpotsEnabled.Value;
  sender.SendsEveryone = tab.chkRBNSendAllSpotsToSotawatch.Value;
  sender.SendsMine = tab.chkRBNSendMySpotsToSotawatch.Value;
  sender.Login = Trim(tab.txtSotawatchLogin.Text.Get());
  sender.Password = Trim(tab.txtSotawatchPassword.Text.Get());
  sender.OwnBaseCallsign = GetBaseCallsign(Trim(rbn.txtRBNCallsign.Text.Get()));
  sender.CommentTemplate = Trim(tab.txtSpotCommentTemplate.Text.Get());
  return sender;
}

}  // namespace brelwin
