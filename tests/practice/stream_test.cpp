// The second half of the practice network: announcements and the skimmers' stream.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

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

// DX de KM3T-2-#:  14100.0  CS3B           CW    24 dB  22 WPM  CQ      2259Z
bool HasTheForm(const std::string& line) {
  constexpr std::size_t FromStationOn = 51;  // characters, line end included; all columns have their widths
  if (line.find("-#:") == std::string::npos || line.size() < FromStationOn + 5) return false;
  const auto stationAt = line.size() - FromStationOn;
  const auto columns = line.substr(stationAt);
  const auto unit = columns.substr(31, 3);
  const auto point = line.rfind('.', stationAt);  // one or two decimals
  return (point == stationAt - 4 || point == stationAt - 5) && columns.substr(23, 5) == " dB  " &&
         (unit == "WPM" || unit == "BPS") && columns.ends_with("Z\r\n");
}

TEST(Skimmers, HearActivatorsOnTheAirAmongManyOthersInTheStreamsOwnForm) {
  Feed feed(Today.Seed, Today.Speed, Today.Origin);
  const auto onTheAir = feed.OnTheAir(Today.Origin + 900, 60);
  Skimmers skimmers(Today.Seed);
  int lines = 0;
  int activators = 0;
  for (int i = 0; i < 2000; ++i) {
    const auto line = skimmers.NextLine(onTheAir, Today.Origin + 900);
    if (!line.starts_with("DX de")) continue;
    ++lines;
    EXPECT_TRUE(HasTheForm(line)) << line;
    activators += std::ranges::any_of(onTheAir, [&](const PublishedSpot& spot) {
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
