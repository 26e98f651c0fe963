// The rules of the Gateway tab: who may switch the gateway on, what the user is warned of, and the button
// that tries the Sotawatch login out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "controls/screen.h"
#include "gateway/gateway.h"
#include "platform/host.h"
#include "settings/configuration.h"

namespace brelwin {

// The switches, after the user has clicked them: without login and password the box is cleared again and the
// user told why.
void chkRBNSendAllSpotsToSotawatch_Click(Host& host, GatewayTab& tab);
void chkRBNSendMySpotsToSotawatch_Click(Host& host, GatewayTab& tab);

// Whether spots are sent at all.
bool IsGatewayOn(const GatewayTab& tab);

// Whether the gateway is on, for whom, and whether it only pretends or cannot send; never empty.
std::string GatewayStateText(const GatewayTab& tab, const RBNTab& rbn);

// What a login or password cannot be sent with: "&", "=", "%", "+", blanks inside and characters outside
// ASCII. Empty when there is nothing to warn of, as the other two.
std::string CredentialWarning(std::string_view login, std::string_view password);

// That the password travels in the clear to an address of plain HTTP outside this machine.
std::string AddressWarning(std::string_view url);

// The template's characters that a page shows as entities or that the form cannot carry, so that an accepted
// spot is not recognised; and that its comments do not tell that a gateway made them.
std::string TemplateWarning(std::string_view commentTemplate);

// That a comment as it is sent lacks "{Via Tarnlink}", by which a gateway's post is told from a spot of the
// activator's own: the template has it not, or too far behind.
std::string GatewayMarkWarning(std::string_view commentTemplate);

// Keeps the tab's words up to date for as long as it lives. It begins with the settings loaded.
class GatewayTabWords {
 public:
  GatewayTabWords(GatewayTab& tab, RBNTab& rbn, const Configuration& configuration);

 private:
  std::vector<Watch> watches_;
};

// Posts a spot that the server refuses after it has checked the login, so nothing is ever spotted, waits for
// the answer, yielding to the event queue, and tells the user in a message box. Refused in words while a
// submission is under way.
void cmdTestSotawatchLogin_Click(Gateway& gateway);

}  // namespace brelwin
