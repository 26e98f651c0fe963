// The second half of the practice network: announcements and the skimmers' stream.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "announcements.h"
#include "skimmer.h"
#include "telnet_server.h"

namespace practice {
namespace {

constexpr Playing Today{5, 10, 1'795'000'000};

TEST(Announcements, AreTheSameFromTheSameSeedAndLieInOrderFromAnHourAgoOn) {
  const auto announcements = Announcements(Today, Today.Origin + 600);
  ASSERT_GT(announcements.size(), 50U);
  EXPECT_TRUE(std::ranges::is_sorted(announcements, {}, &Announcement::Time));
  EXPECT_GE(announcements.front().Time, Today.Origin + 600 - 3600);
  EXPECT_EQ(AlertsPage(announcements), AlertsPage(Announcements(Today, Today.Origin + 600)));
  const auto has = [&](auto holds) { return std::ranges::any_of(announcements, holds); };
  EXPECT_TRUE(has([](const auto& a) { return a.Comment.find("S+2") != std::string::npos; }));
  EXPECT_TRUE(has([](const auto& a) { return a.Comment.find("CANCELLED") != std::string::npos; }));
  EXPECT_TRUE(has([](const auto& a) { return a.Station.find(" & ") != std::string::npos; }));
}

TEST(Skimmers, HearAnnouncedActivatorsAmongManyOthersInTheStreamsOwnForm) {
  Feed feed(Today.Seed, Today.Speed, Today.Origin);
  const auto newest = feed.Newest(Today.Origin + 900, 60);
  Skimmers skimmers(Today.Seed);
  const std::regex form(
      "DX de \\S+-#: *\\d+\\.\\d  \\S+ +(CW|RTTY) +\\d+ dB +\\d+ (WPM|BPS)  \\S+ +\\d{4}Z\r\n");
  int lines = 0;
  int activators = 0;
  for (int i = 0; i < 2000; ++i) {
    const auto line = skimmers.NextLine(newest, Today.Origin + 900);
    if (!line.starts_with("DX de")) continue;
    ++lines;
    EXPECT_TRUE(std::regex_match(line, form)) << line;
    activators += std::ranges::any_of(newest, [&](const PublishedSpot& spot) {
      return line.find("  " + spot.What.Station.substr(0, spot.What.Station.find(' ')) + " ") !=
             std::string::npos;
    });
  }
  EXPECT_LT(lines, 2000) << "now and then comes something else";
  EXPECT_GT(activators, 100);
  EXPECT_LT(activators, lines / 2);
}

TEST(Faults, AreKnownByName) {
  EXPECT_EQ(FaultOfName("no-prompt"), Fault::NoPrompt);
  EXPECT_FALSE(FaultOfName("none"));
}

}  // namespace
}  // namespace practice
