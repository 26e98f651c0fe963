#include "gateway/login_test.h"

#include <string>

#include "base/text.h"
#include "core/trap.h"
#include "gateway/spotlite_submission.h"

namespace brelwin {
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
  if (gateway.Transfer.SendInProgress())
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
