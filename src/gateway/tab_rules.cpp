#include "gateway/tab_rules.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"
#include "gateway/rbn_spot_submission.h"
#include "radio/callsign.h"
#include "radio/web_address.h"

namespace brelwin {
namespace {

bool HasCredentials(const GatewayTab& tab) {
  return !Trim(tab.txtSotawatchLogin.Text.Get()).empty() &&
         !Trim(tab.txtSotawatchPassword.Text.Get()).empty();
}

void RequireCredentials(Host& host, const GatewayTab& tab, CheckBox& box, std::string_view purpose) {
  if (!box.Value || HasCredentials(tab)) return;
  box.Value = false;
  host.Messages.ShowMessage(
      "You must first enter both your Sotawatch Login and your Sotawatch Password before " +
          std::string(purpose) + ".",
      "Gateway", MessageIcon::Exclamation);
}

// What keeps a gateway that is on from sending; empty when nothing does.
std::string WhatIsMissing(const GatewayTab& tab, const RBNTab& rbn) {
  if (!HasCredentials(tab)) return "login or password is missing";
  if (!rbn.chkReverseBeaconSpotsEnabled.Value) return "the Reverse Beacon Network is switched off";
  const bool sendsMineOnly = !tab.chkRBNSendAllSpotsToSotawatch.Value;
  if (sendsMineOnly && GetBaseCallsign(Trim(rbn.txtRBNCallsign.Text.Get())).empty())
    return "your callsign is missing";
  return {};
}

bool IsPrintableAscii(char character) {
  return character > ' ' && character <= '~';
}

bool CannotBeCarried(char character) {
  return !IsPrintableAscii(character) || std::string_view("&=%+").find(character) != std::string_view::npos;
}

bool CannotBeCarried(std::string_view text) {
  return std::ranges::any_of(Trim(text), [](char character) { return CannotBeCarried(character); });
}

bool ComesBackChanged(std::string_view text) {
  while (!text.empty()) {
    const auto codePoint = TakeCodePoint(text);
    if (std::u32string_view(U"&<>\"'").find(codePoint) != std::u32string_view::npos) return true;
    if (!CodeInWindows1252(codePoint)) return true;
  }
  return false;
}

// As long as what is put into a comment usually gets.
Spot LongWords() {
  Spot spot;
  spot.Speed = spot.SignalToNoiseRatio = 30;
  spot.Spotter = "OE9GHV-2-#";
  return spot;
}

void Keep(std::vector<Watch>& watches, auto& value, const std::function<void()>& refresh) {
  watches.push_back(value.WhenChanged(refresh));
}

}  // namespace

void chkRBNSendAllSpotsToSotawatch_Click(Host& host, GatewayTab& tab) {
  RequireCredentials(host, tab, tab.chkRBNSendAllSpotsToSotawatch, "enabling the gateway");
}

void chkRBNSendMySpotsToSotawatch_Click(Host& host, GatewayTab& tab) {
  RequireCredentials(host, tab, tab.chkRBNSendMySpotsToSotawatch, "your spots can be sent to the gateway");
}

bool IsGatewayOn(const GatewayTab& tab) {
  return tab.chkRBNSendAllSpotsToSotawatch.Value || tab.chkRBNSendMySpotsToSotawatch.Value;
}

std::string GatewayStateText(const GatewayTab& tab, const RBNTab& rbn) {
  if (!IsGatewayOn(tab)) return "Gateway off";
  if (const auto missing = WhatIsMissing(tab, rbn); !missing.empty())
    return "Gateway on, but nothing is sent: " + missing;
  const std::string whose = tab.chkRBNSendAllSpotsToSotawatch.Value ? "everyone's spots" : "my spots";
  return "Gateway on: " + whose + (tab.chkGatewayDryRun.Value ? ", dry run, nothing is sent" : " are sent");
}

std::string CredentialWarning(std::string_view login, std::string_view password) {
  const bool isLogin = CannotBeCarried(login);
  const bool isPassword = CannotBeCarried(password);
  if (!isLogin && !isPassword) return {};
  const std::string_view whose = !isPassword ? "The login holds"
                                 : !isLogin  ? "The password holds"
                                             : "The login and the password both hold";
  return std::string(whose) +
         " a character that the form cannot carry (&, =, %, +, a blank or one outside ASCII); logging in "
         "will fail.";
}

std::string AddressWarning(std::string_view url) {
  constexpr std::string_view Scheme = "http://";
  const auto address = Trim(url);
  if (!EqualsIgnoringCase(address.substr(0, Scheme.size()), Scheme)) return {};
  const auto host = HostOfAddress(address);
  if (IsThisMachine(host)) return {};
  return "The password travels to " + host + " in the clear: its address begins with http, not https.";
}

std::string GatewayMarkWarning(std::string_view commentTemplate) {
  if (Contains(GatewaySpotComment(Trim(commentTemplate), LongWords()), GatewayMark)) return {};
  return "The comment as it is sent, its first 60 characters, lacks {Via Tarnlink}: others may take such "
         "spots "
         "for the activator's own and change his alerts.";
}

std::string TemplateWarning(std::string_view commentTemplate) {
  const auto mark = GatewayMarkWarning(commentTemplate);
  if (!ComesBackChanged(commentTemplate)) return mark;
  return (mark.empty() ? mark : mark + " ") +
         "The comment holds a character that comes back from the server in another form (& < > \" ' or one "
         "outside Windows-1252): spots may be taken and still be reported as not recognised.";
}

GatewayTabWords::GatewayTabWords(GatewayTab& tab, RBNTab& rbn, const Configuration& configuration) {
  const auto refresh = [&tab, &rbn, &configuration] {
    tab.lblGatewayState.Caption = GatewayStateText(tab, rbn);
    tab.lblGatewayLoginWarning.Caption =
        CredentialWarning(tab.txtSotawatchLogin.Text.Get(), tab.txtSotawatchPassword.Text.Get());
    tab.lblGatewayAddressWarning.Caption = AddressWarning(configuration.Addresses.SpotliteSpotSubmitURL);
    tab.lblGatewayTemplateWarning.Caption = TemplateWarning(tab.txtSpotCommentTemplate.Text.Get());
  };
  refresh();
  Keep(watches_, tab.chkRBNSendAllSpotsToSotawatch.Value, refresh);
  Keep(watches_, tab.chkRBNSendMySpotsToSotawatch.Value, refresh);
  Keep(watches_, tab.chkGatewayDryRun.Value, refresh);
  Keep(watches_, tab.txtSotawatchLogin.Text, refresh);
  Keep(watches_, tab.txtSotawatchPassword.Text, refresh);
  Keep(watches_, tab.txtSpotCommentTemplate.Text, refresh);
  Keep(watches_, rbn.chkReverseBeaconSpotsEnabled.Value, refresh);
  Keep(watches_, rbn.txtRBNCallsign.Text, refresh);
}

}  // namespace brelwin
