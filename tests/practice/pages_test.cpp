// How the practice network writes its formats.
#include <gtest/gtest.h>

#include "activation.h"
#include "escape.h"
#include "ledger.h"
#include "options.h"
#include "pages.h"
#include "times.h"

namespace practice {
namespace {

PublishedSpot Spot(std::int64_t time, std::string comment, Markup writing) {
  return {time, {0, "G4ABC/P", "G/LD-001", "7.032", "CW", std::move(comment), "M0ABC", writing}};
}

TEST(PracticePages, WriteMarkupInThreeWays) {
  const auto text = "5 < 9 & \"a\"\n\xC3\xA9";
  EXPECT_EQ(MarkupText(text, Markup::NamedEntities), "5 &lt; 9 &amp; &quot;a&quot;\n\xC3\xA9");
  EXPECT_EQ(MarkupText(text, Markup::NumericEntities), "5 &#60; 9 &#x26; &#34;a&#x22;&#10;&#xe9;");
  EXPECT_EQ(MarkupText(text, Markup::CData), "<![CDATA[5 < 9 & \"a\"\n\xC3\xA9]]>");
}

TEST(PracticePages, WriteJsonInAscii) {
  EXPECT_EQ(JsonString("a\"b\\c\n\xC3\xA9\xE3\x81\x82\xF0\x9F\x98\x80"),
            R"("a\"b\\c\u000a\u00e9\u3042\ud83d\ude00")");
}

TEST(PracticePages, TakeTextOutOfFormsAndBytesAsTheyAre) {
  EXPECT_EQ(PercentDecoded("a%20b+c%2F%zz%4"), "a b c/%zz%4");
  EXPECT_TRUE(IsUtf8("a\xC3\xA9\xF0\x9F\x98\x80"));
  for (const auto* bad : {"\xFF", "\xC3", "\xE2\x82", "\x80", "\xC3("}) EXPECT_FALSE(IsUtf8(bad)) << bad;
  EXPECT_EQ(ByteCharacters("a\xFF\x80"), "a\xC3\xBF\xC2\x80");
}

TEST(PracticePages, KeepARecordOnOneLine) {
  Record record("line");
  record.Number("connection", 3).Flag("whole", false).Text("text", "a\r\n\"").Text("raw", "\xFF");
  record.Texts("fields", {{"a", "b"}, {"c", ""}});
  EXPECT_EQ(record.Members(),
            R"(,"kind":"line","connection":3,"whole":false,"text":"a\u000d\u000a\"","raw_bytes":"\u00ff",)"
            R"("fields":{"a":"b","c":""})");
}

TEST(PracticePages, WriteTimesInEnglish) {
  EXPECT_EQ(RssTime(1795514400), "Tue, 24 Nov 2026 10:00:00 GMT");
  EXPECT_EQ(RssTime(1709251199), "Thu, 29 Feb 2024 23:59:59 GMT");
  EXPECT_EQ(SearchTime(1767225605), "Thu, 01 Jan 2026 00:00:05 +0000");
}

TEST(PracticePages, WriteFrequenciesInMegahertz) {
  EXPECT_EQ(FrequencyText(70320), "7.032");
  EXPECT_EQ(FrequencyText(140625), "14.0625");
  EXPECT_EQ(FrequencyText(1455000), "145.500");
  EXPECT_EQ(FrequencyText(103681000), "10368.100");
}

TEST(PracticePages, TheFeedIsNewestFirst) {
  const auto page =
      RssPage({Spot(1795514400, "Tom's", Markup::NamedEntities), Spot(1795514399, "", Markup::CData)},
              1795514401, "http://localhost:1");
  const auto first = page.find("<description>Tom&#39;s Posted by M0ABC</description>");
  const auto second = page.find("<description><![CDATA[ Posted by M0ABC]]></description>");
  EXPECT_LT(first, second);
  EXPECT_NE(second, std::string::npos);
  EXPECT_NE(page.find("<lastBuildDate>Tue, 24 Nov 2026 10:00:01 GMT</lastBuildDate>"), std::string::npos);
  EXPECT_TRUE(page.ends_with("  </channel>\n</rss>\n"));
}

TEST(PracticePages, ASearchGivesWhatIsNewer) {
  const auto newer = Spot(1795514400, "<b>", Markup::CData);
  const auto older = Spot(1795514399, "", Markup::CData);
  const auto page = SearchPage({newer, older}, older.Identity());
  EXPECT_NE(page.find("\"text\":\"G4ABC/P on G/LD-001 @ 7.032 CW &lt;b&gt; (Posted by M0ABC)\""),
            std::string::npos);
  EXPECT_EQ(page.find(std::to_string(older.Identity())), std::string::npos);
  EXPECT_NE(SearchPage({newer, older}, newer.Identity()).find("\"results\":[]"), std::string::npos);
}

TEST(PracticeOptions, AreReadOrRefused) {
  using Arguments = std::vector<std::string_view>;
  const auto options =
      ReadOptions(Arguments{"--port", "8080", "--seed", "5", "--speed", "0.5", "--ledger", "a b"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->Port, 8080);
  EXPECT_EQ(options->Seed, 5U);
  EXPECT_EQ(options->Speed, 0.5);
  EXPECT_EQ(options->LedgerFile, "a b");
  EXPECT_TRUE(ReadOptions(Arguments{}));
  for (const auto& bad :
       {Arguments{"--port"}, Arguments{"--port", "65536"}, Arguments{"--port", "-1"},
        Arguments{"--speed", "0"}, Arguments{"--speed", "nan"}, Arguments{"--speed", "2x"},
        Arguments{"--ledger", ""}, Arguments{"--help", "1"}, Arguments{"--spotlite", "late,"},
        Arguments{"--spotlite", "late:0"}, Arguments{"--spotlite", "lately"}, Arguments{"--crowd", "-1"}})
    EXPECT_FALSE(ReadOptions(bad)) << bad.front();
}

}  // namespace
}  // namespace practice
