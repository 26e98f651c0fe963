// Who sends, as what, and whose spots, as the screen has it at this moment.
#pragma once

#include <string>

#include "controls/gateway_tab.h"
#include "controls/rbn_tab.h"

namespace brelwin {

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
