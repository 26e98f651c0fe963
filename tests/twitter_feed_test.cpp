// The Sotawatch spots on Twitter: from a search answer to spots.
#include <gtest/gtest.h>

#include "base/text.h"
#include "feed_properties.h"
#include "random_text.h"
#include "spots/twitter_feed.h"
#include "test_host.h"

namespace brelwin {
namespace {

std::string Result(const std::string& id, const std::string& text,
                   const std::string& clockTime = "11:59:30") {
  return R"({"created_at":"Tue, 24 Nov 2026 )" + clockTime + R"( +0000","from_user":"SOTAwatch","id_str":")" +
         id + R"(","text":")" + text + "\"}";
}

std::string Answer(const std::string& results) {
  return R"({"max_id_str":"9","results":[)" + results + "]}\n";
}

class TwitterFeed : public testing::Test {
 protected:
  FeedReadResult Read(const std::string& answer, const std::string& sinceID = {}) {
    spots_.Clear();
    host_.Internet.AnswerAlways("http://search.test/search.json?since_id=" + sinceID, answer);
    return ReadTwitterSpots(host_.World, {"http://search.test/search.json?since_id=ZZZZ", sinceID, 60},
                            known_, spots_);
  }
  std::string IDs() const {
    std::string ids;
    for (const auto& entry : spots_) ids += entry.Item->ID + " ";
    return ids;
  }

  test::TestHost host_;
  CallsignCollection known_;
  SpotCollection spots_;
};

TEST_F(TwitterFeed, BuildsTheSpotOfATweet) {
  const auto result = Read(Answer(Result(
      "42",
      R"(G4ABC\/P on G\/LD-001 @ 14.062 CW caf\u00e9 &lt;3 \ud83d\udce1\n5 &amp;amp; (Posted by M0XYZ))")));
  EXPECT_EQ(result.End, FeedEnd::EndOfFeed);
  EXPECT_EQ(result.NewestID, "42");
  ASSERT_EQ(IDs(), "42 ");
  const auto& spot = **spots_.At(1);
  EXPECT_EQ(spot.Station + spot.SummitDesignator + spot.FormattedFrequencyString + spot.ModeString,
            "G4ABC/PG/LD-00114.062CW");
  EXPECT_EQ(spot.Comment, "caf\xC3\xA9 <3 \xF0\x9F\x93\xA1 5 &amp;");
  EXPECT_EQ(spot.Spotter, "M0XYZ");
  EXPECT_EQ(spot.UTCTime, "11:59");
  EXPECT_EQ(host_.Disk.Text("/brelwin/SOTAActivators.txt"), "G4ABC\r\n");
}

TEST_F(TwitterFeed, ReturnsOnlyWhatIsNewerAndYoungEnough) {
  const std::string text = "G4ABC on G/LD-001 @ 7.03 CW (Posted by M0XYZ)";
  const auto result = Read(Answer(Result("1000000000000000000002", text) + "," + Result("100", text) + "," +
                                  Result("99", text) + "," + Result("0098", text) + "," + Result("x1", text) +
                                  "," + Result("101", text, "10:58:00") + ",{},7,[\"text\"]"),
                           "99");
  EXPECT_EQ(IDs(), "1000000000000000000002 100 ");
  EXPECT_EQ(result.NewestID, "1000000000000000000002");
  EXPECT_EQ(result.SkippedItems.size(), 2U);
}

TEST_F(TwitterFeed, ACutAnswerGivesNothing) {
  const auto whole =
      Answer(Result("2", "G4ABC on G/LD-001 @ 7.03 CW") + "," + Result("1", "G4XYZ on G/LD-001"));
  const auto resultsBegin = whole.find('[') + 1;
  for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
    FeedReadResult result;
    ReadTwitterText(whole.substr(0, length), {"", "", 60}, ReadingMomentOf(host_.World), known_, spots_,
                    result);
    EXPECT_EQ(result.End, length < resultsBegin ? FeedEnd::NoFeed : FeedEnd::Cut) << length;
    EXPECT_TRUE(spots_.Empty());
  }
}

TEST_F(TwitterFeed, WhatIsNoAnswerIsNoFeed) {
  for (const std::string text : {"", "<html>", "[]", "{}", "null", R"({"results":7})", R"([{"results":[]}])",
                                 R"({"a":{"results":[]}})"}) {
    EXPECT_EQ(Read(text).End, FeedEnd::NoFeed) << text;
  }
  EXPECT_EQ(Read(R"({"results":[]})").End, FeedEnd::EndOfFeed);
  host_.Internet.Forget("http://search.test/search.json?since_id=");
  EXPECT_EQ(
      ReadTwitterSpots(host_.World, {"http://search.test/search.json?since_id=ZZZZ", "", 60}, known_, spots_)
          .StatusText,
      "No connection to Twitter: Connection refused");
}

TEST(TwitterAnswer, IsAllOrNothing) {
  test::RandomText answers(
      6, {R"({"results":[)", R"({"id_str":"42",)", R"("text":"G4ABC on G/LD-001")", "}", "]}", ",", "[", "{",
          R"("id_str":"7")", R"("results":)", R"(\ud83d)", "\"", "1e999"});
  for (int i = 0; i < 5000; ++i) {
    const auto answer = answers.Next(10);
    EXPECT_TRUE(test::SearchAnswerIsAllOrNothing(answer)) << answer;
  }
}

TEST(TwitterAnswer, SurvivesHostileJson) {
  EXPECT_FALSE(ReadTwitterAnswer(std::string(500'000, '[')).IsWhole);
  EXPECT_TRUE(ReadTwitterAnswer(std::string(100'000, '[') + std::string(100'000, ']')).IsWhole);
  for (const auto& [escaped, text] : std::initializer_list<std::pair<std::string, std::string>>{
           {R"(\ud83d)", "\xEF\xBF\xBD"},
           {R"(\udce1x)", "\xEF\xBF\xBDx"},
           {R"(\ud83d\ud83d\udce1)", "\xEF\xBF\xBD\xF0\x9F\x93\xA1"},
           {R"(\\ud83d)", R"(\ud83d)"},
       }) {
    const auto answer = ReadTwitterAnswer(Answer(Result("1", escaped)));
    ASSERT_TRUE(answer.IsWhole) << escaped;
    EXPECT_EQ(answer.Tweets.at(0).Text, text);
  }
}

}  // namespace
}  // namespace brelwin
