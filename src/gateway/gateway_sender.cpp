#include "gateway/gateway_sender.h"

#include "base/text.h"
#include "radio/callsign.h"

namespace brelwin {

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
