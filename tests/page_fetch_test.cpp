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

  void ExpectNotOpened() const {
    EXPECT_FALSE(transfer_.LastStatus());
    EXPECT_EQ(transfer_.LastErrorMessage(), "Unable to open URL");
    EXPECT_NE(transfer_.LastTransportError(), "");
  }

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
  ExpectNotOpened();
  EXPECT_EQ(transfer_.LastTransportError(), "Connection refused");
  Read({.Body = "there"});
  EXPECT_TRUE(transfer_.LastStatus());
  EXPECT_EQ(transfer_.LastTransportError(), "");
}

TEST_F(PageFetch, WaitsThirtySecondsForTheConnection) {
  Read({.Body = "never", .Delay = Milliseconds(-1)});
  ExpectNotOpened();
  EXPECT_EQ(Seconds(), 30);
}

TEST_F(PageFetch, ASilentServerEndsTheTextAfterThirtySeconds) {
  EXPECT_EQ(Read({.Body = "abcdef", .BetweenPieces = Milliseconds(31'000), .PieceSize = 3}), "abc");
  EXPECT_TRUE(transfer_.LastStatus());
  EXPECT_EQ(Seconds(), 30);
}

TEST_F(PageFetch, ASlowServerEndsTheTextAfterTwoMinutes) {
  const auto text = Read({.Body = std::string(500, 'x'), .BetweenPieces = Milliseconds(1'000)});
  EXPECT_TRUE(transfer_.LastStatus());
  EXPECT_EQ(text.size(), 120U);
  EXPECT_EQ(Seconds(), 120);
}

TEST_F(PageFetch, WhatComesWithoutAnythingToShowIsNoSilence) {
  const auto slowly = [](int hiddenPieces) {
    return ScriptedAnswer{.Body = "x", .BetweenPieces = Milliseconds(1'000), .HiddenPieces = hiddenPieces};
  };
  EXPECT_EQ(Read(slowly(60)), "x");
  EXPECT_EQ(Seconds(), 61);
  EXPECT_EQ(Read(slowly(500)), "");
  ExpectNotOpened();
  EXPECT_EQ(Seconds(), 120);
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
