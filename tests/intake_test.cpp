// The spot intake: each spot is delivered once, whatever the feed does.
#include "intake/spot_intake.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "feed_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::FeedItemText;
using test::FeedText;
using test::PubDate;

std::string Item(const std::string& station, const std::string& clockTime) {
  return FeedItemText(station + " on G/LD-001 @ 7.032 CW", PubDate(clockTime), "CQ Posted by M0XYZ");
}

class Intake : public testing::Test {
 protected:
  // The stations of the new spots, in order.
  std::string Take() {
    newSpots_.Clear();
    code_ = intake_.GetSotawatchSpots(source_, addresses_, {}, known_, trusted_, sinceID_, newSpots_, error_);
    std::string stations;
    for (const auto& entry : newSpots_) stations += entry.Item->Station + " ";
    return stations;
  }
  std::string Take(const std::string& feed) {
    host_.Internet.AnswerAlways(addresses_.SotawatchRSS, feed);
    return Take();
  }
  void TakeServerDown() {
    host_.Internet.Forget(addresses_.SotawatchRSS);
    EXPECT_EQ(Take(), "");
    EXPECT_EQ(code_, -100);
  }

  test::TestHost host_;
  ServiceClient service_{host_.World, [] { return 0.0; }};
  SpotIntake intake_{host_.World, service_};
  URLTemplates addresses_{.Twitter = "http://search.test/?since_id=ZZZZ",
                          .Callsign = {},
                          .Summit = {},
                          .SotawatchAlerts = {},
                          .SotawatchRSS = "http://feed.test/RssFeed",
                          .SpotliteSpotSubmitURL = {},
                          .SotawatchAPI = {},
                          .SotawatchAPITermsConfirmed = {}};
  CallsignCollection known_;
  CallsignCollection trusted_;
  SpotCollection newSpots_;
  std::string sinceID_;
  std::string error_;
  std::int32_t code_ = 0;
  SpotSource source_ = SpotSource::RSS;
};

TEST_F(Intake, DeliversEachSpotOnceNewestFirst) {
  trusted_.Add("M0XYZ", "M0XYZ");
  EXPECT_EQ(Take(FeedText({Item("G4BBB", "11:58:00"), Item("G4AAA", "11:57:00")})), "G4BBB G4AAA ");
  EXPECT_EQ(code_, -1);
  const auto& spot = **newSpots_.At(1);
  EXPECT_TRUE(spot.SpotterIsTrustedSpotter);
  EXPECT_EQ(spot.SpotKey, "G4BBB7.032");
  EXPECT_EQ(Take(), "");
  EXPECT_EQ(Take(FeedText({Item("G4CCC", "11:59:00"), Item("G4BBB", "11:58:00")})), "G4CCC ");
}

TEST_F(Intake, ACutFeedDeliversWhatItHoldsAndLosesNothing) {
  Take(FeedText({Item("G4AAA", "11:50:00")}));
  const auto feed =
      FeedText({Item("G4CCC", "11:52:00"), Item("G4BBB", "11:51:00"), Item("G4AAA", "11:50:00")});
  EXPECT_EQ(Take(feed.substr(0, feed.find("G4BBB"))), "G4CCC ");
  EXPECT_EQ(code_, 0);
  EXPECT_EQ(Take(feed), "G4BBB ");
  EXPECT_EQ(code_, -1);
  for (const std::string broken : {"", "<html>502</html>", "<rss>"}) {
    EXPECT_EQ(Take(broken), "");
    EXPECT_EQ(code_, 0);
    EXPECT_NE(error_, "");
  }
  TakeServerDown();
  EXPECT_EQ(Take(feed), "");
  EXPECT_EQ(error_, "");
  const auto log = host_.EventLog();
  EXPECT_EQ(SplitLines(log).size(), 4U) << "two outages, however they changed:\n" << log;
}

TEST_F(Intake, AnUntimedItemIsNewOnlyOnce) {
  const std::string title = "G4BBB on G/LD-001 @ 7.032 CW";
  const auto feed =
      FeedText({Item("G4BBB", "12:00:00"), Item("G4BBB", "no time at all"),
                FeedItemText(title, "none", "RBNN Posted by M0XYZ"), Item("G4AAA", "11:57:00")});
  EXPECT_EQ(Take(feed), "G4BBB G4BBB G4BBB G4AAA ") << "of one station, spotter and second";
  for (int hour = 0; hour < 60; ++hour) {
    host_.Queue.RunFor(std::chrono::hours(1));
    EXPECT_EQ(Take(feed), "") << hour;
  }
}

TEST_F(Intake, AnItemWithoutAStationIsLoggedOnce) {
  const auto feed =
      FeedText({FeedItemText("&#10;nobody", PubDate("11:59:00"), ""), Item("G4AAA", "11:57:00")});
  EXPECT_EQ(Take(feed), "G4AAA ");
  Take(feed);
  const auto log = host_.EventLog();
  EXPECT_EQ(SplitLines(log).size(), 1U) << log;
  EXPECT_TRUE(Contains(log, "An item without a station was skipped: nobody"));
}

TEST_F(Intake, KeepsTheNewestTweetAndChangesFeedsWithoutRepeating) {
  Take(FeedText({Item("G4AAA", "11:57:00")}));
  source_ = SpotSource::Twitter;
  const auto tweet = [](const std::string& id, const std::string& station, const std::string& clockTime) {
    return R"({"id_str":")" + id + R"(","created_at":"Tue, 24 Nov 2026 )" + clockTime +
           R"( +0000","text":")" + station + " on G/LD-001 @ 7.032 CW CQ (Posted by M0XYZ)\"}";
  };
  host_.Internet.AnswerAlways(
      "http://search.test/?since_id=",
      R"({"results":[)" + tweet("12", "G4BBB", "11:58:00") + "," + tweet("11", "G4AAA", "11:57:00") + "]}");
  EXPECT_EQ(Take(), "G4BBB ");
  EXPECT_EQ(sinceID_, "12");
  EXPECT_EQ(Take(), "");  // the address with the new ID is unknown
  EXPECT_EQ(code_, -100);
  EXPECT_EQ(sinceID_, "12");
}

TEST_F(Intake, ANestedCallAndAQuitChangeNothing) {
  const auto feed = FeedText({Item("G4AAA", "11:57:00")});
  {
    const ActivityMark mark(host_.World.Going, Activity::FetchInProgress);
    EXPECT_EQ(Take(feed), "");
    EXPECT_EQ(code_, 0);
  }
  host_.World.ShuttingDown = true;
  EXPECT_EQ(Take(), "");
  host_.World.ShuttingDown = false;
  EXPECT_EQ(host_.EventLog(), "");
  EXPECT_EQ(Take(), "G4AAA ");
}

}  // namespace
}  // namespace brelwin
