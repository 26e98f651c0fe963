// Stories of the whole program as a gateway: an announced activator is heard and spotted, whatever the user
// does meanwhile.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "alerts_page_text.h"
#include "base/text.h"
#include "cycle/program.h"
#include "feed_text.h"
#include "gateway_story.h"

namespace brelwin {
namespace {

using std::chrono::seconds;
using test::FormFields;

constexpr auto FeedAddress = "http://feed.test/rss";
constexpr auto AlertsAddress = "http://alerts.test/page";
const std::string HeardLine =
    "DX de KM3T-2-#:  14062.0  G4ABC          CW    24 dB  22 WPM  CQ      1201Z\r\n";
const std::string HeardAgainLine =
    "DX de KM3T-2-#:  14063.9  G4ABC          CW    24 dB  22 WPM  CQ      1202Z\r\n";

struct GatewayProgram : test::TestHost {
  explicit GatewayProgram(const std::string& gatewaySettings = "RBNSendAllSpotsToSotawatch=1\r\n") {
    Disk.Put("/brelwin/Brelwin.INI",
             "[General]\r\nSecondsBetweenChecks=3\r\nSotawatchSpotsViaRSS=1\r\n[ReverseBeaconNetwork]\r\n"
             "RBNSpotsEnabled=1\r\nRBNCallsign=Q0ZZ\r\nMaxMinutesBeforeAlertTime=60\r\n"
             "MaxMinutesAfterAlertTime=60\r\nSOTAAlertsRefreshInterval=5\r\nFilterDuplicateSpots=1\r\n"
             "DuplicateSpotFilteringPeriod=10\r\n[Gateway]\r\nSotawatchLogin=q0zz\r\n"
             "GatewayDelayBeforeFinalDupeCheckAndSendInSeconds=1\r\n"
             "GatewayMinimumSecondsBetweenSpotsOfSameStation=600\r\n"
             "SpotliteSpotSubmitURL=http://127.0.0.1/Spotlite/postSpot\r\n" +
                 gatewaySettings + "[URLTemplates]\r\nSotawatchRSS=" + FeedAddress +
                 "\r\nSotawatchAlerts=" + AlertsAddress + "\r\n");
    Internet.AnswerAlways(
        FeedAddress,
        test::FeedText({{.Title = "HB9XYZ on HB/BE-001 @ 7.032 CW", .Date = "24 Nov 2026 11:58:00"}}));
    Internet.AnswerAlways(AlertsAddress, test::Heading() + test::Table({.Time = "12:10"}));
    Http.Serve = [](const HttpRequest& request) {
      auto answer = test::ServeSpotlite(request);
      answer.Body += std::string(2500, ' ');
      answer.Delay = Milliseconds(120);
      return answer;
    };
    Sockets.Peer(test::ScriptedPeer()
                     .Accepts()
                     .Sends("Please enter your callsign: ")
                     .Expects("Q0ZZ\r\n")
                     .Sends("Hello, Q0ZZ!\r\n")
                     .Sends(HeardLine, seconds(4))
                     .Sends(HeardAgainLine, seconds(8)));
    Brelwin = std::make_unique<Program>(World);
  }

  void Run() {
    Brelwin->Start({}, "secret");
    Queue.RunFor(seconds(25));
  }

  // Lets the intruder in at the yield with this number, counted from 1.
  void RunWithIntruder(int yield, const std::function<void()>& intruder) {
    Queue.OnYield = [this, yield, intruder] {
      if (++yields_ != yield) return;
      const auto thisFunction = std::move(Queue.OnYield);
      Queue.OnYield = nullptr;
      intruder();
    };
    Run();
    Queue.OnYield = nullptr;
  }

  std::size_t Posts(const std::string& station) const {
    std::size_t count = 0;
    for (const auto& request : Http.Requests) count += FormFields(request.Body)["actCallsign"] == station;
    return count;
  }

  std::size_t LinesWith(std::string_view text) const {
    std::size_t count = 0;
    const auto log = EventLog();
    for (const auto line : SplitLines(log)) count += Contains(line, text) ? 1U : 0U;
    return count;
  }

  GatewayTab& Tab() { return Brelwin->Controls().Gateway; }

  std::unique_ptr<Program> Brelwin;

 private:
  int yields_ = 0;
};

int CountYields() {
  GatewayProgram program;
  program.Run();
  return program.Queue.Yields;
}

TEST(GatewayCycle, AHeardActivatorIsSpottedOnceAndEverythingSaysSo) {
  GatewayProgram program;
  program.Run();
  ASSERT_EQ(program.Posts("G4ABC"), 1U) << program.EventLog();
  EXPECT_EQ(FormFields(program.Http.Requests[0].Body)["freq"], "14.062");
  EXPECT_EQ(program.LinesWith("The spot was sent successfully!"), 1U);
  EXPECT_EQ(program.LinesWith("(min sec for respot=600)"), 1U) << "heard again on another frequency";
  auto& screen = program.Brelwin->Controls();
  EXPECT_TRUE(screen.Window.Caption.Get().ends_with(" --- by Q0ZZ --- Gateway Mode Enabled"));
  EXPECT_TRUE(Contains(screen.Spots.lblSources.Caption.Get(), "Gateway on: everyone's spots are sent | "));
  const auto& journal = program.Tab().lstGatewayJournal.Items.Get();
  ASSERT_EQ(journal.size(), 2U);
  EXPECT_TRUE(Contains(journal[1], "sent: CQ CQ at 22 wpm. S/N=24 dB at KM3T-2"));
  EXPECT_TRUE(Contains(journal[0], "not sent: a spot of the station was sent "));
  EXPECT_EQ(screen.Spots.txtSPOTList.Spots.at(1)->Comment,
            "CQ CQ at 22 wpm. S/N=24 dB at KM3T-2 {Via Tarnlink}")
      << "the posted comment stays in the spot";
}

TEST(GatewayCycle, TheSwitchesNeedALoginAndShowTheirState) {
  GatewayProgram program("");
  program.Brelwin->Start({}, {});
  auto& box = program.Tab().chkRBNSendAllSpotsToSotawatch;
  const auto click = [&] {
    box.Value = !box.Value;
    box.Click();
  };
  click();
  EXPECT_FALSE(box.Value);
  ASSERT_EQ(program.Dialogs.Shown.size(), 1U);
  auto& screen = program.Brelwin->Controls();
  EXPECT_FALSE(Contains(screen.Window.Caption.Get(), "Gateway"));
  program.Tab().txtSotawatchPassword.Text = "secret";
  click();
  EXPECT_TRUE(Contains(screen.Window.Caption.Get(), "Gateway Mode Enabled"));
  EXPECT_TRUE(Contains(screen.Spots.lblSources.Caption.Get(), "Gateway on"));
  click();
  EXPECT_FALSE(Contains(screen.Window.Caption.Get() + screen.Spots.lblSources.Caption.Get(), "Gateway"));
}

TEST(GatewayCycle, ADryRunSendsNothingAndCountsNothing) {
  GatewayProgram program("RBNSendAllSpotsToSotawatch=1\r\nDryRun=1\r\n");
  program.Run();
  EXPECT_TRUE(program.Http.Requests.empty());
  EXPECT_EQ(program.LinesWith("Dry run, the spot would have been sent: actCallsign=G4ABC&"), 2U);
}

TEST(GatewayCycle, WhateverIsPressedAtAnyWaitPostsTheSpotOnce) {
  const int yields = CountYields();
  for (int intruder = 0; intruder < 3; ++intruder) {
    for (int yield = 1; yield <= yields; ++yield) {
      GatewayProgram program;
      program.RunWithIntruder(yield, [&] {
        auto& spots = program.Brelwin->Controls().Spots;
        (intruder == 0   ? spots.cmdGetSPOTS
         : intruder == 1 ? spots.cmdReloadSpotList
                         : program.Tab().cmdTestSotawatchLogin)
            .Click();
      });
      ASSERT_EQ(program.Posts("G4ABC"), 1U) << intruder << " at " << yield << program.EventLog();
      ASSERT_EQ(program.LinesWith("The spot was sent successfully!"), 1U) << intruder << " at " << yield;
      ASSERT_EQ(program.LinesWith("(min sec for respot=600)"), 1U) << intruder << " at " << yield;
      ASSERT_EQ(program.LinesWith("Error, Number="), 0U) << intruder << " at " << yield;
    }
  }
}

TEST(GatewayCycle, QuittingAtAnyWaitPostsNothingMoreAndEndsTheLog) {
  const int yields = CountYields();
  for (int yield = 1; yield <= yields; ++yield) {
    GatewayProgram program;
    std::size_t posts = 0;
    Instant quit{};
    bool begun = false;
    program.RunWithIntruder(yield, [&] {
      begun = program.LinesWith("Begin processing") >
              program.LinesWith("returned status") + program.LinesWith("min sec for respot");
      program.Brelwin->Quit();
      posts = program.Http.Requests.size();
      quit = program.Time.Now();
    });
    ASSERT_TRUE(program.Queue.HasQuit) << yield;
    ASSERT_LE(program.Time.Now() - quit, seconds(2)) << yield;
    ASSERT_EQ(program.Http.Requests.size(), posts) << yield;
    ASSERT_TRUE(program.EventLog().ends_with(": Form_Unload End\r\n")) << yield;
    ASSERT_GE(program.LinesWith("The program is ending, nothing more is sent."), begun ? 1U : 0U) << yield;
  }
}

TEST(GatewayCycle, GetSpotsNowDuringAWaitTakesSotawatchsSpotsAtOnce) {
  GatewayProgram program;
  std::size_t readsAtOnce = 0;
  program.Queue.OnYield = [&] {
    if (readsAtOnce > 0 || program.World.FetchInProgress || program.LinesWith("Begin delay") == 0) return;
    readsAtOnce = 1;  // what it yields to itself is left alone
    const auto before = program.Internet.Queries.size();
    program.Brelwin->Controls().Spots.cmdGetSPOTS.Click();
    readsAtOnce = program.Internet.Queries.size() - before;
    EXPECT_FALSE(program.Brelwin->Controls().Spots.lblCheckingForSpots.Visible);
  };
  program.Run();
  EXPECT_EQ(readsAtOnce, 1U);
  EXPECT_EQ(program.LinesWith("Begin delay"), program.LinesWith("End delay"));
  EXPECT_EQ(program.Posts("G4ABC"), 1U);
}

// The tick finds the login being tested, leaves the stream alone and takes it up at the next one.
TEST(GatewayCycle, ALoginTestHoldsTheStreamBackAndLosesNothing) {
  GatewayProgram program;
  program.Http.Serve = [](const HttpRequest& request) {
    auto answer = test::ServeSpotlite(request);
    answer.Delay = Milliseconds(4500);
    return answer;
  };
  program.Brelwin->Start({}, "secret");
  program.Queue.RunFor(seconds(4));
  program.Tab().cmdTestSotawatchLogin.Click();
  EXPECT_EQ(program.LinesWith("Begin processing"), 0U);
  ASSERT_EQ(program.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(program.Dialogs.Shown[0].Text, "Logged into Sotawatch successfully.");
  program.Queue.RunFor(seconds(25));
  EXPECT_EQ(program.Posts("G4ABC"), 1U);
}

}  // namespace
}  // namespace brelwin
