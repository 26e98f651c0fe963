// The rules and words of the Gateway tab.
#include <gtest/gtest.h>

#include "gateway/tab_rules.h"
#include "gateway_story.h"

namespace brelwin {
namespace {

using test::GatewayStory;

TEST(GatewayTab, LetsTheGatewayOnOnlyWithALogin) {
  GatewayStory story;
  story.Tab.txtSotawatchLogin.Text = " ";
  for (auto* box : {&story.Tab.chkRBNSendAllSpotsToSotawatch, &story.Tab.chkRBNSendMySpotsToSotawatch})
    box->Value = true;
  chkRBNSendAllSpotsToSotawatch_Click(story.World, story.Tab);
  chkRBNSendMySpotsToSotawatch_Click(story.World, story.Tab);
  chkRBNSendMySpotsToSotawatch_Click(story.World, story.Tab);  // unticked, it says nothing
  EXPECT_FALSE(story.Tab.chkRBNSendAllSpotsToSotawatch.Value || story.Tab.chkRBNSendMySpotsToSotawatch.Value);
  ASSERT_EQ(story.Dialogs.Shown.size(), 2U);
  EXPECT_EQ(story.Dialogs.Shown[0].Text,
            "You must first enter both your Sotawatch Login and your Sotawatch Password before enabling the "
            "gateway.");
  EXPECT_EQ(story.Dialogs.Shown[1].Text,
            "You must first enter both your Sotawatch Login and your Sotawatch Password before your spots "
            "can be sent "
            "to the gateway.");
  story.Tab.txtSotawatchLogin.Text = "q0zz";
  story.Tab.chkRBNSendAllSpotsToSotawatch.Value = true;
  chkRBNSendAllSpotsToSotawatch_Click(story.World, story.Tab);
  EXPECT_TRUE(story.Tab.chkRBNSendAllSpotsToSotawatch.Value);
}

TEST(GatewayTab, WarnsOfWhatTheFormCannotCarry) {
  for (const auto* bad : {"a&b", "a=b", "50%", "a+b", "a b", "caf\xC3\xA9", "tab\t"}) {
    EXPECT_NE(CredentialWarning(bad, "secret"), "") << bad;
    EXPECT_NE(CredentialWarning("q0zz", bad), "") << bad;
  }
  EXPECT_TRUE(CredentialWarning("q&", "+").starts_with("The login and the password both hold"));
  EXPECT_EQ(CredentialWarning(" q0zz ", "s3cret!#?/~"), "");
  const std::string mark = " {Via Tarnlink}";
  for (const auto* bad : {"&", "<b>", "\"", "it's", "CQ \u2192"})
    EXPECT_TRUE(TemplateWarning(bad + mark).starts_with("The comment holds a character")) << bad;
  for (const auto& bad :
       {std::string("CQ at XXX wpm"), std::string(47, 'x') + mark, "S/N=YYY at ZZZ on the air " + mark + "!"})
    EXPECT_EQ(TemplateWarning(bad).empty(), bad.ends_with("!")) << bad;
  EXPECT_EQ(TemplateWarning("CQ CQ at XXX wpm. S/N=YYY dB at ZZZ {Via Tarnlink} \u20AC caf\u00E9"), "");
}

TEST(GatewayTab, WarnsOfAPasswordInTheClear) {
  for (const auto* clear : {"http://example.org/x", " HTTP://127.example.org/",
                            "http://localhost@example.org/", "http://example.org?localhost"})
    EXPECT_NE(AddressWarning(clear), "") << clear;
  for (const auto* safe : {"https://example.org/", "http://localhost:8080/", "http://127.0.0.1",
                           "http://[::1]:80/", "http://LOCALHOST/", ""})
    EXPECT_EQ(AddressWarning(safe), "") << safe;
}

TEST(GatewayTab, KeepsItsWordsUpToDate) {
  GatewayStory story;
  story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false;
  story.RBN.chkReverseBeaconSpotsEnabled.Value = true;
  const GatewayTabWords words(story.Tab, story.RBN, story.Config);
  EXPECT_EQ(story.Tab.lblGatewayState.Caption.Get(), "Gateway off");
  story.Tab.chkRBNSendMySpotsToSotawatch.Value = true;
  EXPECT_EQ(story.Tab.lblGatewayState.Caption.Get(), "Gateway on: my spots are sent");
  story.RBN.txtRBNCallsign.Text = " ";
  EXPECT_EQ(story.Tab.lblGatewayState.Caption.Get(),
            "Gateway on, but nothing is sent: your callsign is missing");
  story.Tab.chkRBNSendAllSpotsToSotawatch.Value = true;
  story.Tab.chkGatewayDryRun.Value = true;
  EXPECT_EQ(story.Tab.lblGatewayState.Caption.Get(),
            "Gateway on: everyone's spots, dry run, nothing is sent");
  EXPECT_EQ(story.Tab.lblGatewayLoginWarning.Caption.Get(), "");
  story.Tab.txtSotawatchPassword.Text = "a b";
  EXPECT_TRUE(story.Tab.lblGatewayLoginWarning.Caption.Get().starts_with("The password"));
  story.Tab.txtSotawatchPassword.Text = " ";
  EXPECT_EQ(story.Tab.lblGatewayState.Caption.Get(),
            "Gateway on, but nothing is sent: login or password is missing");
}

}  // namespace
}  // namespace brelwin
