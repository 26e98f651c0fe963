#include "gateway/tab_rules.h"

#include <algorithm>
#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "core/trap.h"
#include "gateway/spotlite_submission.h"
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
  auto mark = GatewayMarkWarning(commentTemplate);
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

namespace {

constexpr std::int32_t StatusLoginFailed = -1200;  // as older servers had it

struct TestOutcome {
  std::string Text;
  MessageIcon Icon;
};

// The association does not exist: the server looks at it only after the login.
Spot SpotThatIsRefused() {
  Spot spot;
  spot.Station = "K9ZZZ";
  spot.FrequencyInMhz = 1.999F;
  spot.SummitDesignator = "Z8/ZZ-999";
  spot.ModeString = "PSK";
  spot.Comment = "TESTING - Please Ignore";
  return spot;
}

std::string UnexpectedAnswerText(const SubmissionResult& result) {
  const auto text = "Spotlite returned an unexpected response (" + std::to_string(result.Status) + ")";
  return result.Message.empty() ? text : text + ": " + result.Message;
}

TestOutcome OutcomeOf(const SubmissionResult& result) {
  if (result.Status == StatusBadLogin || result.Status == StatusLoginFailed)
    return {"The Sotawatch login information is invalid, login failed.", MessageIcon::Exclamation};
  if (result.Status == StatusBadAssociation)
    return {"Logged into Sotawatch successfully.", MessageIcon::Information};
  if (result.Status >= StatusAccepted)
    return {
        "The Sotawatch login information is valid and the test spot with bad data was accepted (not supposed "
        "to happen)!",
        MessageIcon::Exclamation};
  return {UnexpectedAnswerText(result), MessageIcon::Exclamation};
}

void Show(Host& host, const TestOutcome& outcome) {
  host.Messages.ShowMessage(outcome.Text, "Test Sotawatch Login", outcome.Icon);
}

void TestLogin(Gateway& gateway) {
  auto& host = gateway.World;
  const std::string login(Trim(gateway.Tab.txtSotawatchLogin.Text.Get()));
  const std::string password(Trim(gateway.Tab.txtSotawatchPassword.Text.Get()));
  if (login.empty() || password.empty())
    return Show(host,
                {"You must first enter both your Sotawatch Login and your Sotawatch Password before testing "
                 "the login.",
                 MessageIcon::Exclamation});
  if (!host.Going.LetStart(Work::Send))
    return Show(host, {"A spot is just being sent to Sotawatch. Please test the login again in a moment.",
                       MessageIcon::Information});
  const auto spot = SpotThatIsRefused();
  const auto result = SendSpotToSotawatch(host, gateway.Transfer, gateway.Settings, login, password, &spot);
  if (!host.ShuttingDown) Show(host, OutcomeOf(result));
}

}  // namespace

void cmdTestSotawatchLogin_Click(Gateway& gateway) {
  TrapErrorsSilently([&] { TestLogin(gateway); });
}

}  // namespace brelwin
