// Reading one page: time-outs, cuts, quitting, nesting.
#include <gtest/gtest.h>

#include "core/internet_transfer.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::ScriptedAnswer;

constexpr auto Url = "http://feed.test/RssFeed";

class PageFetch : public testing::Test {
 protected:
  std::string Read(ScriptedAnswer answer) { return Read(std::move(answer), transfer_); }
  std::string Read(ScriptedAnswer answer, InternetTransfer& transfer) {
    host_.Internet.Forget(Url);
    host_.Internet.Answer(Url, std::move(answer));
    start_ = host_.World.Time.Now();
    auto text = transfer.OpenURL(Url);
    EXPECT_FALSE(host_.World.Going.Includes(Activity::FetchInProgress));
    return text;
  }
  std::int64_t Seconds() const { return SecondsBetween(start_, host_.World.Time.Now()); }

  test::TestHost host_;
  InternetTransfer transfer_{host_.World};
  Instant start_;
};

// Thirty seconds of silence, two minutes in all; what gives nothing to show is no silence.
TEST_F(PageFetch, EveryWaitHasItsEnd) {
  constexpr Milliseconds Second{1'000};
  const std::tuple<ScriptedAnswer, std::string, std::int64_t> cases[] = {
      {{.Body = "never", .Delay = Milliseconds(-1)}, "", 30},
      {{.Body = "abcdef", .BetweenPieces = 31 * Second, .PieceSize = 3}, "abc", 30},
      {{.Body = std::string(500, 'x'), .BetweenPieces = Second}, std::string(120, 'x'), 120},
      {{.Body = "caf\xC3\xA9\ncaf\xE9\n", .BetweenPieces = Second}, "caf\xC3\xA9\ncaf\xC3\xA9\n", 11},
      {{.Body = "x", .BetweenPieces = Second, .HiddenPieces = 60}, "x", 61},
      {{.Body = "x", .BetweenPieces = Second, .HiddenPieces = 500}, "", 120},
  };
  for (const auto& [answer, text, seconds] : cases) {
    EXPECT_EQ(Read(answer), text);
    EXPECT_EQ(transfer_.LastStatus(), !text.empty());
    EXPECT_EQ(Seconds(), seconds);
  }
  InternetTransfer patient(host_.World, DuringTransfer::OthersMayStart);
  EXPECT_EQ(Read({.Body = "abcdef", .BetweenPieces = 31 * Second, .PieceSize = 3}, patient), "abcdef");
  EXPECT_EQ(Read({.Body = "never", .Delay = Milliseconds(-1)}, patient), "");
  EXPECT_EQ(Seconds(), 60);
}

TEST_F(PageFetch, ASecondFetchMeanwhileIsNotOpened) {
  InternetTransfer second(host_.World);
  const auto intruder = host_.Queue.CallAfter(Milliseconds(5), [&] {
    EXPECT_TRUE(host_.World.Going.Includes(Activity::FetchInProgress));
    EXPECT_EQ(second.OpenURL(Url), "");
    EXPECT_TRUE(host_.World.Going.Includes(Activity::FetchInProgress));
  });
  EXPECT_EQ(Read({.Body = "first"}), "first");
  EXPECT_FALSE(second.LastStatus());
  ASSERT_EQ(host_.Internet.Queries.size(), 1U);
  EXPECT_EQ(host_.Internet.Queries[0].Limits.MaximumBytes, 67108864U);
}

}  // namespace
}  // namespace brelwin
