// Stories of the whole program as a gateway: an announced activator is heard and spotted, whatever the user
// does meanwhile, at every single yield.
#include <gtest/gtest.h>

#include "base/text.h"
#include "gateway_story.h"
#include "program_story.h"

namespace brelwin {
namespace {

using std::chrono::seconds;
using test::FormFields;

const std::string HeardAgainLine =
    "DX de KM3T-2-#:  14063.9  G4ABC          CW    24 dB  22 WPM  CQ      1202Z\r\n";

struct GatewayProgram : test::ProgramStory {
  GatewayProgram() {
    Settings("SecondsBetweenChecks=3\r\n",
             "RBNSpotsEnabled=1\r\nFilterDuplicateSpots=1\r\nDuplicateSpotFilteringPeriod=10\r\n",
             "SotawatchLogin=q0zz\r\nGatewayDelayBeforeFinalDupeCheckAndSendInSeconds=1\r\n"
             "GatewayMinimumSecondsBetweenSpotsOfSameStation=600\r\nRBNSendAllSpotsToSotawatch=1\r\n"
             "SpotliteSpotSubmitURL=http://127.0.0.1/Spotlite/postSpot\r\n");
    Internet.AnswerAlways(
        test::FeedAddress,
        test::FeedText({test::FeedItemText("HB9XYZ on HB/BE-001 @ 7.032 CW", test::PubDate("11:58:00"))}));
    AnswerFormsAfter(Milliseconds(120));
    Sockets.Peer(LoggingIn().Sends(test::HeardLine, seconds(4)).Sends(HeardAgainLine, seconds(8)));
  }

  // In several chunks.
  void AnswerFormsAfter(Milliseconds delay) {
    Internet.ServePost = [delay](const HttpRequest& request) {
      auto answer = test::ServeSpotlite(request);
      answer.Body += std::string(2500, ' ');
      answer.Delay = delay;
      return answer;
    };
  }

  void Run() {
    Brelwin.Start({}, "secret");
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

  std::size_t Posts(const std::string& station) const { return test::PostsOf(Internet, station); }
  std::size_t LinesWith(std::string_view text) const { return Split(EventLog(), text).size() - 1; }

  GatewayTab& Tab() { return Window().Gateway; }

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
  EXPECT_EQ(FormFields(program.Internet.Posts[0].Body)["freq"], "14.062");
  EXPECT_EQ(program.LinesWith("The spot was sent successfully!"), 1U);
  EXPECT_EQ(program.LinesWith("(min sec for respot=600)"), 1U) << "heard again on another frequency";
  auto& screen = program.Window();
  EXPECT_TRUE(screen.Window.Caption.Get().ends_with(" --- by Q0ZZ --- Gateway Mode Enabled"));
  EXPECT_TRUE(Contains(screen.Spots.lblSources.Caption.Get(), "Gateway on: everyone's spots are sent | "));
  const auto& journal = program.Tab().lstGatewayJournal.Items.Get();
  ASSERT_EQ(journal.size(), 2U);
  EXPECT_TRUE(Contains(journal[1], "sent: CQ CQ at 22 wpm. S/N=24 dB at KM3T-2"));
  EXPECT_TRUE(Contains(journal[0], "not sent: a spot of the station was sent "));
  EXPECT_EQ(program.ListedSpots().at(1)->Comment, "CQ CQ at 22 wpm. S/N=24 dB at KM3T-2 {Via Tarnlink}")
      << "the posted comment stays in the spot";

  auto& box = program.Tab().chkRBNSendAllSpotsToSotawatch;
  box.Value = false;
  box.Click();
  EXPECT_FALSE(Contains(screen.Window.Caption.Get() + screen.Spots.lblSources.Caption.Get(), "Gateway"));
  program.Tab().txtSotawatchPassword.Text = "";
  box.Value = true;
  box.Click();
  EXPECT_FALSE(box.Value) << "it needs a login";
}

TEST(GatewayCycle, WhateverIsPressedAtAnyWaitPostsTheSpotOnce) {
  const int yields = CountYields();
  for (int intruder = 0; intruder < 3; ++intruder) {
    for (int yield = 1; yield <= yields; ++yield) {
      GatewayProgram program;
      program.RunWithIntruder(yield, [&] {
        auto& spots = program.Window().Spots;
        (intruder == 0   ? spots.cmdGetSPOTS
         : intruder == 1 ? spots.cmdReloadSpotList
                         : program.Tab().cmdTestSotawatchLogin)
            .Click();
      });
      ASSERT_EQ(program.Posts("G4ABC"), 1U) << intruder << " at " << yield << program.EventLog();
      ASSERT_EQ(program.LinesWith("The spot was sent successfully!"), 1U) << intruder << " at " << yield;
      ASSERT_EQ(program.LinesWith("(min sec for respot=600)"), 1U) << intruder << " at " << yield;
      ASSERT_EQ(program.LinesWith("Error, Number="), 0U) << intruder << " at " << yield;
      for (const auto& message : program.Dialogs.Shown)
        ASSERT_EQ(message.Icon, MessageIcon::Information) << intruder << " at " << yield << message.Text;
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
      program.Brelwin.Quit();
      posts = program.Internet.Posts.size();
      quit = program.Time.Now();
    });
    ASSERT_TRUE(program.Queue.HasQuit) << yield;
    ASSERT_LE(program.Time.Now() - quit, seconds(2)) << yield;
    ASSERT_EQ(program.Internet.Posts.size(), posts) << yield;
    ASSERT_TRUE(program.EventLog().ends_with(": Form_Unload End\r\n")) << yield;
    ASSERT_EQ(program.LinesWith(": Form_QueryUnload\r\n"), 1U) << yield;
    ASSERT_FALSE(program.Window().tmrCheckSpots.Enabled) << yield;
    ASSERT_GE(program.LinesWith("The program is ending, nothing more is sent."), begun ? 1U : 0U) << yield;
    const auto answers = program.Disk.Text("/brelwin/GatewayServerResponseLog.txt");
    ASSERT_EQ(program.LinesWith("The spot was sent successfully!"), answers.empty() ? 0U : 1U)
        << yield << ": an answer that had come is still taken";
  }
}

TEST(GatewayCycle, GetSpotsNowDuringAWaitTakesSotawatchsSpotsAtOnce) {
  GatewayProgram program;
  std::size_t readsAtOnce = 0;
  program.Queue.OnYield = [&] {
    if (readsAtOnce > 0 || program.World.Going.Includes(Activity::FetchInProgress) ||
        program.LinesWith("Begin delay") == 0)
      return;
    readsAtOnce = 1;  // what it yields to itself is left alone
    const auto before = program.Internet.Queries.size();
    program.Window().Spots.cmdGetSPOTS.Click();
    readsAtOnce = program.Internet.Queries.size() - before;
    EXPECT_FALSE(program.Window().Spots.lblCheckingForSpots.Visible);
  };
  program.Run();
  EXPECT_EQ(readsAtOnce, 1U);
  EXPECT_EQ(program.LinesWith("Begin delay"), program.LinesWith("End delay"));
  EXPECT_EQ(program.Posts("G4ABC"), 1U);
}

// The machine sleeps with a line waiting, which is shown. What is heard on the next connection is sent.
TEST(GatewayCycle, AfterAStallWhatWaitedIsShownButNotSent) {
  GatewayProgram program;
  program.Sockets.Peer(program.LoggingIn().Sends(test::HeardLine, seconds(4)));
  program.Brelwin.Start({}, "secret");
  program.Queue.RunFor(seconds(5));
  ASSERT_EQ(program.LinesWith("Begin processing"), 0U) << "the line waits for the next check";
  program.Time.MoveTo(program.Time.Now() + std::chrono::minutes(5));
  program.Queue.RunFor(Milliseconds(2500));
  EXPECT_EQ(program.Posts("G4ABC"), 0U) << program.EventLog();
  EXPECT_TRUE(Contains(program.ListText(), "G4ABC"));
  EXPECT_EQ(program.LinesWith("The program stood still for 5 minutes."), 1U) << program.EventLog();
  EXPECT_EQ(program.Tab().lstGatewayJournal.Items.Get().size(), 2U) << "what came meanwhile waited too";
  EXPECT_EQ(program.Sockets.Tried.size(), 2U);
  program.Queue.RunFor(seconds(20));
  EXPECT_EQ(program.Posts("G4ABC"), 1U) << program.EventLog();
}

// A template without the gateway's mark, whose login is a trusted spotter's.
TEST(GatewayCycle, AnOwnPostIsNoCommandEvenAfterARestart) {
  GatewayProgram program;
  const std::string settings = "/brelwin/Brelwin.INI";
  program.Disk.Put(settings, Replace(program.Disk.Text(settings), "[Gateway]\r\n",
                                     "[Gateway]\r\nSpotCommentTemplate=CQ at XXX wpm, RBNN\r\n"));
  program.Disk.Put("/brelwin/SOTATrustedSpotters.txt", "q0zz\r\n");
  program.Run();
  EXPECT_EQ(program.LinesWith("SpotCommentTemplate - "), 1U);
  ASSERT_EQ(FormFields(program.Internet.Posts.at(0).Body)["comments"], "CQ at 22 wpm, RBNN");
  program.Internet.AnswerAlways(
      test::FeedAddress,
      test::FeedText({test::FeedItemText("G4ABC on G/LD-001 @ 14.0625 CW", test::PubDate("12:00:20"),
                                         "CQ at 22 wpm, RBNN Posted by Q0ZZ")}));
  program.Brelwin.Quit();
  program.Queue.HasQuit = program.World.ShuttingDown = false;
  Program next(program.World);
  next.Start({}, {});
  program.Queue.RunFor(seconds(5));
  EXPECT_EQ(program.LinesWith("This gateway's own post of G4ABC is no command"), 1U) << program.EventLog();
  EXPECT_EQ(program.LinesWith("received from trusted chaser"), 0U);
}

// The tick finds the login being tested, leaves the stream alone and takes it up at the next one.
TEST(GatewayCycle, ALoginTestHoldsTheStreamBackAndLosesNothing) {
  GatewayProgram program;
  program.AnswerFormsAfter(Milliseconds(4500));
  program.Brelwin.Start({}, "secret");
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
