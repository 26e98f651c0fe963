// One submission from form to log entry, whatever the server does.
#include "gateway/spotlite_submission.h"

#include <gtest/gtest.h>

#include "gateway/tab_rules.h"
#include "gateway_story.h"

namespace brelwin {
namespace {

using test::GatewayStory;
using test::ScriptedAnswer;

struct SpotliteStory : GatewayStory {
  SpotPointer TheSpot = SkimmerSpot("G4ABC", "14.062");

  SpotliteStory() { TheSpot->Comment = "hello"; }

  SubmissionResult Send() {
    return SendSpotToSotawatch(World, TheGateway.Transfer, Config, "q0zz", "secret", TheSpot.get());
  }
  std::string AnswerLog() const { return Disk.Text("/brelwin/GatewayServerResponseLog.txt"); }
};

TEST(SpotliteSubmission, LeavesEveryOutcomeInTheLogs) {
  const auto failed = [](const std::string& why) {
    return ScriptedAnswer{.Body = "submission failed: " + why};
  };
  const std::string accepted = "G4ABC 14.062 cw hello";
  const std::string unrecognised = "Spot submission finished but not all expected data in server response";
  const std::string timeout = "Spot sumission failed, timeout.";
  const std::vector<std::tuple<ScriptedAnswer, std::int32_t, std::string>> cases{
      {{.Body = accepted}, -1, "Spot submission succeeded."},
      {{.Body = accepted, .Delay = Milliseconds(4999)}, -1, "Spot submission succeeded."},
      {{.Status = 500, .Body = "oops"}, -400, unrecognised},
      {{.Body = ""}, -400, unrecognised},
      {failed("no reason"), -300, "Spot sumission failed"},
      {failed("password you gave was incorrect"), -600, "Spot sumission failed, bad login info"},
      {failed("association you gave was not valid"), -601, "Spot sumission failed, association not valid"},
      {failed("frequency you gave is not valid"), -602, "Spot sumission failed, frequency not valid"},
      {{.Delay = Milliseconds(-1)}, -200, timeout},
      {{.Delay = Milliseconds(5001)}, -200, timeout},
      {{.Status = 0, .ErrorText = "cut", .ErrorNumber = 2},
       -1000,
       "Submission failed, protocol error. ResponseCode=2 ResponseInfo=cut"},
  };
  for (const auto& [answer, status, logLine] : cases) {
    SpotliteStory story;
    story.Internet.AnswerPost(answer);
    const auto result = story.Send();
    EXPECT_EQ(result.Status, status);
    EXPECT_EQ(result.Message, logLine.starts_with("Spot sumission") ? logLine : "");
    EXPECT_EQ(result.LogLine, logLine);
    const auto log = story.GatewayLog();
    const auto lines = SplitLines(log);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], " - - - - - - - - - - - - - - - - - - - - - - - - - -");
    EXPECT_TRUE(lines[1].find(":  12:00  G4ABC       G/LD-001") != std::string_view::npos) << lines[1];
    EXPECT_EQ(lines[2], logLine);
    EXPECT_EQ(story.TheSpot->LogLinePreceeding + story.TheSpot->LogLineFollowing, "");
    const bool isComplete = status != -200 && status != -1000;
    EXPECT_EQ(!story.AnswerLog().empty(), isComplete);
    EXPECT_FALSE(story.World.Going.Includes(Activity::SendInProgress));
  }
}

TEST(SpotliteSubmission, KeepsAnswersForItsOwnerOnly) {
  SpotliteStory story;
  story.Internet.AnswerPost({.Body = "first"});
  story.Internet.AnswerPost({.Body = "second"});
  (void)story.Send();
  (void)story.Send();
  const std::string posted =
      "actCallsign=G4ABC&assoc=G&summit=LD-001&freq=14.062&mode=cw&callsign=q0zz&password=secret&submit=SPOT!"
      "&comments=hello\r\n";
  const std::string time = "2026-11-24 12:00:00\r\n";
  EXPECT_EQ(story.AnswerLog(),
            time + posted + "first" + "\r\n" + std::string(44, '=') + "\r\n" + time + posted + "second");
  EXPECT_TRUE(story.Disk.IsOwnerOnly("/brelwin/GatewayServerResponseLog.txt"));
  EXPECT_EQ(story.Internet.Posts[0].Url, "https://form.test/Spotlite/postSpot");
  const HttpHeader form{"Content-Type", "application/x-www-form-urlencoded"};
  EXPECT_EQ(std::ranges::count(story.Internet.Posts[0].Headers, form), 1);
  EXPECT_FALSE(story.Internet.Posts[0].IsRepeatable);
}

TEST(SpotliteSubmission, SendsNothingForWhatTheFormCannotHold) {
  SpotliteStory story;
  story.TheSpot->SummitDesignator = "";
  EXPECT_EQ(story.Send().Status, 0);
  story.TheSpot->SummitDesignator = "GLD001";
  EXPECT_EQ(story.Send().Status, -500);
  EXPECT_EQ(story.EventLog(), "");
  story.TheSpot->SummitDesignator = "G/LD&001";
  EXPECT_EQ(story.Send().Status, -500);
  EXPECT_NE(story.EventLog().find("holds a character other than"), std::string::npos);
  EXPECT_EQ(
      SendSpotToSotawatch(story.World, story.TheGateway.Transfer, story.Config, "q", "s", nullptr).Status, 0);
  EXPECT_TRUE(story.Internet.Posts.empty());
  EXPECT_EQ(story.GatewayLog(), "");
}

// An answer that comes after its time-out, even one being read while the next submission begins, is never
// taken for the next one's.
TEST(SpotliteSubmission, NeverTakesALateAnswerForTheNextOnes) {
  SpotliteStory story;
  const std::string accepted = "G4ABC 14.062 cw hello";
  story.Internet.AnswerPost({.Body = accepted + std::string(3000, 'x'), .Delay = Milliseconds(5001)});
  EXPECT_EQ(story.Send().Status, -200);
  story.Internet.AnswerPost({.Body = "submission failed"});
  SubmissionResult second;
  story.Queue.OnYield = [&] {  // the first yield is between two chunks of the late answer
    story.Queue.OnYield = nullptr;
    second = story.Send();
  };
  story.Queue.RunFor(Milliseconds(10));
  EXPECT_EQ(second.Status, -300);
  EXPECT_EQ(story.TheGateway.Transfer.Latest().LastResponseText, "submission failed");

  story.Internet.AnswerPost({.Body = accepted, .Delay = Milliseconds(5001)});
  EXPECT_EQ(story.Send().Status, -200);
  story.Internet.AnswerPost({.Body = "submission failed"});
  EXPECT_EQ(story.Send().Status, -300);
}

// A form that timed out may still be on its way when the user quits.
TEST(SpotliteSubmission, QuittingEndsAForgottenTransfer) {
  SpotliteStory story;
  story.Internet.AnswerPost({.Delay = Milliseconds(-1)});
  EXPECT_EQ(story.Send().Status, -200);
  EXPECT_EQ(story.Internet.Abandoned, 0);
  story.World.ShuttingDown = true;
  story.TheGateway.Transfer.CancelUnanswered();
  EXPECT_EQ(story.Internet.Abandoned, 1);
  EXPECT_EQ(story.Send().Status, 0);
  EXPECT_EQ(story.Internet.Posts.size(), 1U);
}

// What goes wrong while an answer is being read leaves the submission to its time-out.
TEST(SpotliteSubmission, AnAnswerThatCannotBeReadTimesOut) {
  SpotliteStory story;
  story.Internet.AnswerPost({.Body = "G4ABC 14.062 cw hello"});
  bool isReadable = true;
  story.Queue.OnYield = [&] {
    const bool isRead = story.TheGateway.Transfer.Latest().LastInternetState == HttpStateCompleted;
    if (isRead && std::exchange(isReadable, false)) throw std::runtime_error("chunk lost");
  };
  EXPECT_EQ(story.Send().Status, -200);
  EXPECT_EQ(story.AnswerLog(), "");
}

TEST(LoginTest, TellsTheUserWhatTheServerMadeOfIt) {
  const std::vector<std::pair<ScriptedAnswer, std::string>> cases{
      {{.Body = "submission failed: password you gave was incorrect"},
       "The Sotawatch login information is invalid, login failed."},
      {{.Body = "submission failed: association you gave was not valid"},
       "Logged into Sotawatch successfully."},
      {{.Body = "K9ZZZ 1.999 psk TESTING - Please Ignore"},
       "The Sotawatch login information is valid and the test spot with bad data was accepted (not supposed "
       "to "
       "happen)!"},
      {{.Body = ""}, "Spotlite returned an unexpected response (-400)"},
      {{.Delay = Milliseconds(-1)},
       "Spotlite returned an unexpected response (-200): Spot sumission failed, timeout."},
  };
  for (const auto& [answer, text] : cases) {
    SpotliteStory story;
    story.Internet.AnswerPost(answer);
    cmdTestSotawatchLogin_Click(story.TheGateway);
    ASSERT_EQ(story.Dialogs.Shown.size(), 1U);
    EXPECT_EQ(story.Dialogs.Shown[0].Text, text);
    EXPECT_EQ(story.Dialogs.Shown[0].Icon == MessageIcon::Information, text.starts_with("Logged into"));
  }
  SpotliteStory story;
  story.Internet.AnswerPost({.Delay = Milliseconds(-1)});
  story.TheGateway.Transfer.Post("https://form.test/", "body");
  cmdTestSotawatchLogin_Click(story.TheGateway);
  story.Tab.txtSotawatchPassword.Text = "  ";
  cmdTestSotawatchLogin_Click(story.TheGateway);
  EXPECT_EQ(story.Dialogs.Shown[0].Text,
            "A spot is just being sent to Sotawatch. Please test the login again in a moment.");
  EXPECT_TRUE(story.Dialogs.Shown[1].Text.starts_with("You must first enter both"));
  EXPECT_EQ(story.Internet.Posts.size(), 1U);
}

}  // namespace
}  // namespace brelwin
