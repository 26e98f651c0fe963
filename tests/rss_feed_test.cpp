// The Sotawatch feed in its RSS form: from its text to spots.
#include <gtest/gtest.h>

#include "feed_properties.h"
#include "feed_text.h"
#include "random_text.h"
#include "spots/rss_feed.h"
#include "spots/spot_title.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::FeedItemText;
using test::FeedText;
using test::PubDate;

constexpr auto Url = "http://feed.test/RssFeed";

class RSSFeed : public testing::Test {
 protected:
  FeedReadResult Read(const std::string& feed) {
    host_.Internet.AnswerAlways(Url, feed);
    return ReadAgain();
  }
  FeedReadResult ReadAgain() {
    spots_.Clear();
    request_.Url = Url;
    return ReadSotawatchRSS(host_.World, request_, known_, spots_);
  }
  Spot ReadOne(const std::string& title, const std::string& description,
               const std::string& pubDate = PubDate("11:59:30")) {
    Read(FeedText({FeedItemText(title, pubDate, description)}));
    return spots_.Empty() ? Spot() : **spots_.At(1);
  }
  std::string IDs() const {
    std::string ids;
    for (const auto& entry : spots_) ids += entry.Item->ID + " ";
    return ids;
  }

  test::TestHost host_;
  RSSReadRequest request_{Url, {}, 60, false};
  CallsignCollection known_;
  SpotCollection spots_;
};

TEST(SpotTitle, IsTakenApartAroundItsOn) {
  // The title, then station|callsigns|summit|frequency|mode|rest.
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"G4ABC Tom ON G/LD-001 @ 14.062 CW on air", "G4ABC Tom|G4ABC Tom|G/LD-001|14.062|CW|on air"},
      {"G4ABC and G4XYZ On G/LD-001 @ 7.032 SSB", "G4ABC|G4ABC and G4XYZ|G/LD-001|7.032|SSB|"},
      {"G4ABC at G/LD-001 @ 14.062 CW", "G4ABC|G4ABC|G/LD-001|14.062|CW|"},
      {"G4ABC on", "G4ABC|G4ABC||||"},
      {"on G/LD-001 @ 14.062", "on||G/LD-001|14.062||"},
      {"G4ABC", "|||||"}};
  for (const auto& [title, fields] : cases) {
    const auto read = ReadSpotTitle(title);
    std::string joined(read.Station);
    for (const auto part : {read.Callsigns, read.Summit, read.Frequency, read.Mode, read.Rest})
      joined.append("|").append(part);
    EXPECT_EQ(joined, fields);
  }
}

TEST_F(RSSFeed, BuildsTheWholeSpot) {
  host_.Time.Zone = {TimeZoneInformation::State::Standard, -60, 0, -60};
  host_.Time.SetLocalTime(*DateTimeFromCalendar({2026, 11, 24, 13, 0, 0}));
  known_.Add("G4ABC", "G4ABC");
  const auto spot = ReadOne("G4ABC/P on G/LD-001 @ 14.0620 cw", "CQ CQ Posted by M0XYZ/M");
  EXPECT_EQ(spot.ID, "20261124115930G4ABC/PM0XYZ/M");
  EXPECT_EQ(spot.stationBaseCallsign + " " + spot.SpotterBaseCallsign, "G4ABC M0XYZ");
  EXPECT_EQ(spot.FrequencyString + " " + spot.FormattedFrequencyString, "14.0620 14.062");
  EXPECT_EQ(spot.mode, 1);
  EXPECT_EQ(spot.UTCTime, "11:59");
  EXPECT_EQ(spot.LocalDateAndTime, DateTimeFromCalendar({2026, 11, 24, 12, 59, 30}));
  EXPECT_EQ(spot.TimeOfSpot, host_.Time.Now() - std::chrono::seconds(30));
  EXPECT_TRUE(spot.IsKnownActivator);
}

TEST_F(RSSFeed, FindsTheElementsWhereverTheyStand) {
  const std::string expected = "20261124115930G4ABCM0XYZ|a <b> & c";
  for (const std::string item : {
           "<item><pubDate>Tue, 24 Nov 2026 11:59:30 GMT</pubDate><description>a &lt;b&gt; &#38; c Posted by "
           "M0XYZ</description><title>G4ABC on G/LD-001 @ 7.032 CW</title></item>",
           "<item\n><title>\n   G4ABC on\r\n\tG/LD-001 @ 7.032 CW\n</title><guid>1</guid>\n<description>a "
           "&#x3c;b>\n&amp; c&#10;Posted by&#x20;M0XYZ\n</description><pubDate>\n Tue, 24 Nov 2026 12:59:30 "
           "+0100\n</pubDate>\n</item >",
           "<item id=\"1\"><title type=\"text\"><![CDATA[G4ABC on G/LD-001 @ 7.032 CW]]></title><description>"
           "<![CDATA[a <b> & c Posted ]]>by M0XYZ</description><pubDate><![CDATA[Tue, 24 Nov 2026 11:59:30 "
           "GMT]]></pubDate></item>",
       }) {
    const auto result = Read(FeedText({item}));
    ASSERT_EQ(spots_.Count(), 1U) << item;
    const auto& spot = **spots_.At(1);
    EXPECT_EQ(spot.ID + "|" + spot.Comment, expected);
    EXPECT_EQ(spot.SummitDesignator, "G/LD-001");
    EXPECT_EQ(result.End, FeedEnd::EndOfFeed);
  }
}

TEST_F(RSSFeed, DecodesEntitiesOnceAndTrustsNoControlCharacter) {
  for (const auto& [raw, comment] : std::initializer_list<std::pair<const char*, const char*>>{
           {"&amp;lt;&quot;&apos;&amp;amp;", "&lt;\"'&amp;"},
           {"x &nosuch; &#xZZ; &; & &#99999999999; y", "x &nosuch; &#xZZ; &; & &#99999999999; y"},
           {"&#233;&#x1F4E1;&#xD800;&yuml;", "\xC3\xA9\xF0\x9F\x93\xA1\xEF\xBF\xBD\xC3\xBF"},
           {"a&#0;b&#13;&#10;c\td&#x85;e", "a b  c d e"},
           {"<![CDATA[&amp;</description></item>]]>", "&amp;</description></item>"},
           {"&lt;/description&gt;&lt;/item&gt;", "</description></item>"},
       }) {
    EXPECT_EQ(ReadOne("G4ABC on G/LD-001 @ 7.032 CW", raw).Comment, comment);
  }
}

TEST_F(RSSFeed, TheLastPostedByNamesTheSpotterWhoMayBeTheStationItself) {
  const std::string title = "G4ABC/P on G/LD-001 @ 7.032 CW";
  EXPECT_TRUE(ReadOne(title, "QRV Posted by G4ABC").IsSelfSpot);
  EXPECT_FALSE(ReadOne(title, "QRV {Via Tarnlink} Posted by G4ABC").IsSelfSpot);
  const auto chaser = ReadOne(title, "CQ (QRP) Posted by G4ABC (Posted by M0XYZ)");
  EXPECT_FALSE(chaser.IsSelfSpot);
  EXPECT_EQ(chaser.Comment + "|" + chaser.Spotter, "CQ (QRP) Posted by G4ABC|M0XYZ");
  const auto apart = ReadOne(title, "CQ ( Posted by M0XYZ)");
  EXPECT_EQ(apart.Comment + "|" + apart.Spotter, "CQ (|M0XYZ)");
  const auto nobody = ReadOne(title, "nobody posted by");
  EXPECT_EQ(nobody.Comment + "|" + nobody.Spotter, "nobody posted by|");
  const auto aprs = ReadOne(title, "QRV Posted by APRS2SOTA");
  EXPECT_TRUE(aprs.IsAPRSSpot && aprs.IsSelfSpot);
  EXPECT_EQ(aprs.ID, "20261124115930G4ABC/PG4ABC/P");
}

TEST_F(RSSFeed, StopsAtTheAgeLimitAndAtThePreviousNewest) {
  const auto feed =
      FeedText({FeedItemText("G4AAA on G/LD-001 @ 7.03 CW", PubDate("12:10:00"), "caf\xE9, from the future"),
                FeedItemText("nobody", PubDate("11:59:00"), ""),
                FeedItemText("G4BBB on G/LD-001 @ 7.03 CW", "some day, 10:00", "timeless"),
                FeedItemText("G4CCC on G/LD-001 @ 7.03 CW", PubDate("11:00:00"), "60 minutes"),
                FeedItemText("G4DDD on G/LD-001 @ 7.03 CW", PubDate("10:58:59"), "61 minutes"),
                FeedItemText("G4EEE on G/LD-001 @ 7.03 CW", PubDate("11:59:00"), "behind it")});
  auto result = Read(feed);
  EXPECT_EQ(result.End, FeedEnd::ReachedAgeLimit);
  ASSERT_EQ(result.SkippedItems.size(), 1U);
  EXPECT_EQ(result.SkippedItems[0].Text, "nobody");
  EXPECT_TRUE(Contains(host_.Disk.Text("/brelwin/SotawatchSpotsRSS.txt"), "caf\xC3\xA9"));
  EXPECT_EQ(result.NewestID, "20261124121000G4AAA");
  EXPECT_EQ(IDs(), "20261124121000G4AAA 20261124120000G4BBB 20261124110000G4CCC ");

  EXPECT_EQ(
      Read(FeedText({FeedItemText("G4FFF on G/LD-001 @ 7.03 CW", "Thu, 01 Jan 1970 00:00:00 GMT", "")})).End,
      FeedEnd::ReachedAgeLimit);
  Read(feed);
  request_.PreviousNewestID = "20261124110000G4CCC";
  result = ReadAgain();
  EXPECT_EQ(result.End, FeedEnd::ReachedPrevious);
  EXPECT_EQ(spots_.Count(), 2U);

  request_.PreviousNewestID = result.NewestID;
  EXPECT_EQ(ReadAgain().NewestID, request_.PreviousNewestID);
  EXPECT_TRUE(spots_.Empty());
}

TEST_F(RSSFeed, ACutFeedGivesWhatItHoldsAndSaysSo) {
  const auto feed =
      FeedText({FeedItemText("G4AAA on G/LD-001 @ 7.03 CW", PubDate("11:59:00"), "<![CDATA[a]]>"),
                FeedItemText("G4BBB and G4CCC on G/LD-001 @ 7.03 CW", PubDate("11:58:00"), "&amp;")});
  const auto firstItem = feed.find("<rss ");
  const auto feedEnds = feed.find("</rss>") + 6;
  std::size_t most = 0;
  for (std::size_t length = 0; length <= feed.size(); ++length) {
    spots_.Clear();
    FeedReadResult result;
    ReadFeedText(feed.substr(0, length), request_, ReadingMomentOf(host_.World), known_, spots_, result);
    EXPECT_GE(spots_.Count(), most);
    most = spots_.Count();
    const auto end = length >= feedEnds ? FeedEnd::EndOfFeed : FeedEnd::Cut;
    EXPECT_EQ(result.End, length <= firstItem + 18 ? FeedEnd::NoFeed : end) << length;
  }
  EXPECT_EQ(most, 3U);
}

TEST_F(RSSFeed, BrokenFeedsGiveNoSpotThatTheWholeOnesDoNotHave) {
  test::RandomText feeds(
      5,
      Split("<rss>|</rss>|<item>|</item>|<item |<title>|</title>|<pubDate>|</pubDate>|<description>|"
            "</description>|<![CDATA[|]]>|&amp;|&#1|<|>|\r\n|Posted by M0XYZ|Tue, 24 Nov 2026 11:59:30 GMT|"
            "G4ABC and G4XYZ on G/LD-001 @ 7.032 CW|<item><title>G4AAA on G/LD-001</title></item>",
            "|"));
  for (int i = 0; i < 5000; ++i) {
    const auto feed = feeds.Next(25);
    EXPECT_TRUE(test::CutFeedGivesFirstSpots(feed, feeds.Below(feed.size() + 1))) << feed;
    EXPECT_TRUE(test::EscapedTextReadsBack(feed)) << feed;
  }
}

TEST_F(RSSFeed, HostileFeedsAreReadInOnePass) {
  for (const std::string piece :
       {"<", "<item ", "<item>", "<![CDATA[", "<title>", "&", " ", "<title/", "\n "}) {
    std::string feed = "<rss><item><title>";
    while (feed.size() < 300'000) feed += piece;
    SpotCollection spots;
    EXPECT_EQ(test::ReadFeed(feed, spots).End, FeedEnd::Cut);
    test::ReadFeed(feed + "</title></item></rss>", spots);
    EXPECT_LE(spots.Count(), 1U);
  }
}

TEST_F(RSSFeed, SaysWhatTheServerAnswered) {
  using Case = std::tuple<test::ScriptedAnswer, FeedEnd, std::string>;
  for (const auto& [answer, end, status] : std::initializer_list<Case>{
           {{.Status = 0, .ErrorText = "Connection refused"},
            FeedEnd::NotOpened,
            "No connection to Sotawatch: Connection refused"},
           {{.Status = 404, .Body = "<html><title>Not Found</title>"},
            FeedEnd::NoFeed,
            "Sotawatch answered 404"},
           {{.Status = 503, .Body = "<rss></rss>"}, FeedEnd::EndOfFeed, "Sotawatch answered 503"},
           {{.Status = 200, .ErrorText = "Connection closed"},
            FeedEnd::NoFeed,
            "The answer of Sotawatch broke off: Connection closed"},
           {{.Status = 200}, FeedEnd::NoFeed, "Sotawatch answered, but not with spots"},
           {{.Status = 200, .Body = "<rss><channel>", .ErrorText = "Connection closed"},
            FeedEnd::Cut,
            "The answer of Sotawatch broke off: Connection closed"},
           {{.Status = 200, .Body = "<rss></rss>"}, FeedEnd::EndOfFeed, "Connected to Sotawatch"},
       }) {
    host_.Internet.Forget(Url);
    host_.Internet.Answer(Url, answer);
    const auto result = ReadAgain();
    EXPECT_EQ(result.End, end);
    EXPECT_EQ(result.StatusText, status);
    EXPECT_EQ(result.ErrorText.empty(), end == FeedEnd::EndOfFeed);
  }
}

}  // namespace
}  // namespace brelwin
