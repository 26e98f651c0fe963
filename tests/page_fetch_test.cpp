// Reading one page: time-outs, cuts, quitting, nesting.
#include <gtest/gtest.h>

#include "spots/internet_transfer.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::ScriptedAnswer;

constexpr auto Url = "http://feed.test/RssFeed";

class PageFetch : public testing::Test {
 protected:
  std::string Read(ScriptedAnswer answer) {
    host_.Internet.Forget(Url);
    host_.Internet.Answer(Url, std::move(answer));
    start_ = host_.World.Time.Now();
    auto text = transfer_.OpenURL(Url);
    EXPECT_FALSE(host_.World.FetchInProgress);
    return text;
  }
  std::int64_t Seconds() const { return SecondsBetween(start_, host_.World.Time.Now()); }

  test::TestHost host_;
  InternetTransfer transfer_{host_.World};
  Instant start_;
};

TEST_F(PageFetch, EveryAnswerCountsAsOpened) {
  for (const int status : {200, 404, 500}) {
    for (const auto& body : {std::string(), std::string(2048, 'x'), std::string(3000, 'y')}) {
      EXPECT_EQ(Read({.Status = status, .Body = body}), body);
      EXPECT_TRUE(transfer_.LastStatus());
      EXPECT_EQ(transfer_.LastErrorMessage(), "");
      EXPECT_EQ(transfer_.LastStatusCode(), status);
    }
  }
  EXPECT_EQ(host_.Internet.Queries.back().UserAgent, "VB OpenUrl");
  EXPECT_EQ(host_.Internet.Queries.back().MaximumBytes, 67108864U);
}

TEST_F(PageFetch, NoServerIsNotOpenedAndTheNextPageMakesUpForIt) {
  EXPECT_EQ(Read({.Status = 0, .ErrorText = "Connection refused"}), "");
  EXPECT_FALSE(transfer_.LastStatus());
  EXPECT_EQ(transfer_.LastErrorMessage(), "Unable to open URL");
  EXPECT_EQ(transfer_.LastTransportError(), "Connection refused");
  Read({.Body = "there"});
  EXPECT_TRUE(transfer_.LastStatus());
  EXPECT_EQ(transfer_.LastTransportError(), "");
}

// Thirty seconds of silence, two minutes in all; what gives nothing to show is no silence.
TEST_F(PageFetch, EveryWaitHasItsEnd) {
  constexpr Milliseconds Second{1'000};
  const struct {
    ScriptedAnswer Answer;
    std::string Text;
    std::int64_t Seconds;
  } cases[] = {
      {{.Body = "never", .Delay = Milliseconds(-1)}, "", 30},
      {{.Body = "abcdef", .BetweenPieces = 31 * Second, .PieceSize = 3}, "abc", 30},
      {{.Body = std::string(500, 'x'), .BetweenPieces = Second}, std::string(120, 'x'), 120},
      {{.Body = "x", .BetweenPieces = Second, .HiddenPieces = 60}, "x", 61},
      {{.Body = "x", .BetweenPieces = Second, .HiddenPieces = 500}, "", 120},
  };
  for (const auto& [answer, text, seconds] : cases) {
    EXPECT_EQ(Read(answer), text);
    EXPECT_EQ(transfer_.LastStatus(), !text.empty());
    EXPECT_EQ(Seconds(), seconds);
  }
}

TEST_F(PageFetch, QuittingEndsItAtOnce) {
  const auto quit = host_.Queue.CallAfter(Milliseconds(5'000), [this] { host_.World.ShuttingDown = true; });
  Read({.Body = "abcdef", .BetweenPieces = Milliseconds(2'000), .PieceSize = 2});
  EXPECT_EQ(Seconds(), 5);
}

TEST_F(PageFetch, ASecondFetchMeanwhileIsNotOpened) {
  InternetTransfer second(host_.World);
  const auto intruder = host_.Queue.CallAfter(Milliseconds(5), [&] {
    EXPECT_TRUE(host_.World.FetchInProgress);
    EXPECT_EQ(second.OpenURL(Url), "");
    EXPECT_TRUE(host_.World.FetchInProgress);
  });
  EXPECT_EQ(Read({.Body = "first"}), "first");
  EXPECT_FALSE(second.LastStatus());
  EXPECT_EQ(host_.Internet.Queries.size(), 1U);
}

TEST_F(PageFetch, DecodesEachLineOnItsOwnWhereverTheNetworkCutsIt) {
  EXPECT_EQ(Read({.Body = "caf\xC3\xA9\ncaf\xE9\n", .BetweenPieces = Milliseconds(1)}),
            "caf\xC3\xA9\ncaf\xC3\xA9\n");
}

}  // namespace
}  // namespace brelwin
