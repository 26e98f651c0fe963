// What the user can do to the gateway while it waits: at every single yield, one intruder.
#include <gtest/gtest.h>

#include "gateway/login_test.h"
#include "gateway_story.h"
#include "spots/rss_feed_reader.h"
#include "spots/spot_collections.h"

namespace brelwin {
namespace {

using test::GatewayStory;

// A spot on its way through delay, feed and submission, with an answer in several chunks.
struct WaitingStory : GatewayStory {
  WaitingStory() {
    Values.DelaySeconds = 1;
    Values.MinSecondsBetweenSpotsOfSameStation = 5;
    Http.Serve = [](const HttpRequest& request) {
      auto answer = test::ServeSpotlite(request);
      answer.Body += std::string(2500, ' ');
      answer.Delay = Milliseconds(120);
      return answer;
    };
  }

  // Lets the intruder in at the yield with this number, counted from 1.
  void RunWithIntruder(int yield, const std::function<void()>& intruder) {
    Queue.OnYield = [this, yield, intruder] {
      if (++yields_ != yield) return;
      const auto atMostOnce = std::move(Queue.OnYield);
      Queue.OnYield = nullptr;
      intruder();
    };
    Result = Process({SkimmerSpot("G4ABC", "14.062")});
    Queue.OnYield = nullptr;
  }

  // What the button for new spots does while a check is waiting.
  void GetSpotsNow() {
    if (World.FetchInProgress) return;
    SpotCollection spots;
    RSSReadRequest request;
    request.Url = Config.Addresses.SotawatchRSS;
    request.MaximumAgeInMinutes = 1440;
    ReadSotawatchRSS(World, request, Known, spots);
    MergeInFront(spots, Recent);
  }

  // The same station heard again by another skimmer, a few cycles later.
  void HearAgain() {
    Queue.RunFor(std::chrono::seconds(3));
    Process({SkimmerSpot("G4ABC", "14.062")});
  }

  std::int32_t Result = 0;

 private:
  int yields_ = 0;
};

int CountYields() {
  WaitingStory story;
  const int before = story.Queue.Yields;
  story.RunWithIntruder(0, {});
  EXPECT_EQ(story.Posts("G4ABC"), 1U);
  return story.Queue.Yields - before;
}

TEST(GatewayReentry, GetSpotsNowAndTheTestButtonChangeNothing) {
  const int yields = CountYields();
  EXPECT_GT(yields, 20);
  for (const bool isTestButton : {false, true}) {
    for (int yield = 1; yield <= yields; ++yield) {
      WaitingStory story;
      story.RunWithIntruder(yield, [&] {
        if (isTestButton) {
          cmdTestSotawatchLogin_Click(story.TheGateway);
        } else {
          story.GetSpotsNow();
        }
      });
      ASSERT_EQ(story.Result, -1) << yield;
      ASSERT_TRUE(story.GatewayEvents().ends_with("The spot was sent successfully!\n")) << yield;
      ASSERT_FALSE(story.TheGateway.Transfer.SendInProgress()) << yield;
      if (isTestButton) {
        ASSERT_EQ(story.Dialogs.Shown.size(), 1U) << yield;
        ASSERT_EQ(story.Dialogs.Shown[0].Icon, MessageIcon::Information) << yield;
      }
      story.HearAgain();
      ASSERT_EQ(story.Posts("G4ABC"), 1U) << yield;
    }
  }
}

TEST(GatewayReentry, QuittingEndsTheWaitAndPostsNothingMore) {
  const int yields = CountYields();
  for (int yield = 1; yield <= yields; ++yield) {
    WaitingStory story;
    std::size_t postsAtQuit = 0;
    Instant quit{};
    story.RunWithIntruder(yield, [&] {
      story.World.ShuttingDown = true;
      story.TheGateway.Transfer.CancelUnanswered();
      postsAtQuit = story.Http.Requests.size();
      quit = story.Time.Now();
    });
    ASSERT_EQ(story.Result, -1) << yield;
    ASSERT_EQ(story.Http.Requests.size(), postsAtQuit) << yield;
    ASSERT_LE(SecondsBetween(quit, story.Time.Now()), 1) << yield;
    ASSERT_TRUE(story.GatewayEvents().ends_with("The program is ending, nothing more is sent.\n")) << yield;
    ASSERT_FALSE(story.TheGateway.Transfer.SendInProgress()) << yield;
    const auto status = story.TheGateway.Transfer.Latest().TransferStatus;
    const bool succeeded = story.GatewayEvents().find("sent successfully") != std::string::npos;
    ASSERT_EQ(succeeded, status == TransferCompleted) << yield;  // an answer that had come is still taken
    cmdTestSotawatchLogin_Click(story.TheGateway);
    ASSERT_EQ(story.Process({story.SkimmerSpot("HB9DEF", "7.031")}), -1) << yield;
    ASSERT_EQ(story.Http.Requests.size(), postsAtQuit) << yield;
  }
}

// A form that timed out may still be on its way when the user quits.
TEST(GatewayReentry, QuittingEndsAForgottenTransfer) {
  GatewayStory story;
  story.Http.Answer({.Delay = Milliseconds(-1)});
  story.Process({story.SkimmerSpot("G4ABC", "14.062")});
  EXPECT_EQ(story.Message, "Submission timed out.");
  EXPECT_EQ(story.Http.Cancelled, 0);
  story.TheGateway.Transfer.CancelUnanswered();
  EXPECT_EQ(story.Http.Cancelled, 1);
}

TEST(GatewayReentry, TheTestButtonIsRefusedInWordsDuringASubmission) {
  GatewayStory story;
  story.Http.Answer({.Delay = Milliseconds(-1)});
  story.TheGateway.Transfer.Post("https://form.test/", "body");
  cmdTestSotawatchLogin_Click(story.TheGateway);
  ASSERT_EQ(story.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(story.Dialogs.Shown[0].Text,
            "A spot is just being sent to Sotawatch. Please test the login again in a moment.");
  EXPECT_EQ(story.Http.Requests.size(), 1U);
}

}  // namespace
}  // namespace brelwin
