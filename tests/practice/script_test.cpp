// The script of the practice network and how it is published over time.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "announcements.h"
#include "day_script.h"
#include "feed.h"
#include "world.h"

namespace practice {
namespace {

constexpr std::int64_t Origin = 1795514400;  // 24 November 2026, 10:00 UTC
constexpr std::size_t All = 500;

std::string Operator(const ScriptedSpot& spot) {
  for (const auto callsign : Operators())
    if (spot.Station.find(callsign) != std::string::npos) return std::string(callsign);
  return {};
}

TEST(PracticeScript, IsTheSameForTheSameSeedHoweverOftenItIsRead) {
  Feed first(7, 60, Origin);
  Feed second(7, 60, Origin);
  Feed other(8, 60, Origin);
  for (std::int64_t time = 0; time < 3600; time += 7) second.Newest(Origin + time, 1);
  const auto spots = first.Newest(Origin + 3600, All);
  EXPECT_EQ(spots, second.Newest(Origin + 3600, All));
  EXPECT_NE(spots, other.Newest(Origin + 3600, All));
  EXPECT_EQ(spots.size(), All);
}

TEST(PracticeScript, ServesThePresentWhateverItsSpeed) {
  for (const double speed : {0.5, 1.0, 60.0, 10000.0}) {
    Feed feed(5, speed, Origin);
    const auto now = Origin + 900;
    const auto spots = feed.Newest(now, All);
    EXPECT_LE(spots.front().Time, now) << speed;
    const auto notLater = [](const auto& newer, const auto& older) { return newer.Time <= older.Time; };
    EXPECT_EQ(std::ranges::adjacent_find(spots, notLater), spots.end())
        << "a shared second at speed " << speed;
  }
}

TEST(PracticeScript, ADayHasEverythingAReaderMeets) {
  std::set<std::string> kinds;
  std::set<std::string> modes;
  std::set<std::string> comments;
  const auto day = ScriptDay(1, 0);
  for (const auto& spot : day) {
    modes.insert(spot.Mode);
    comments.insert(spot.Comment);
    if (spot.Spotter == Operator(spot)) kinds.insert("by the operator");
    if (spot.Spotter.find("APRS") != std::string::npos) kinds.insert("by APRS");
    if (spot.Station.find(" AND ") != std::string::npos) kinds.insert("two operators");
    if (std::ranges::find(Chasers(), spot.Spotter) != Chasers().end()) kinds.insert("by a chaser");
    if (spot.Writing == Markup::CData) kinds.insert("CDATA");
  }
  EXPECT_EQ(kinds.size(), 5U);
  EXPECT_EQ(modes.size(), 6U);
  for (const auto comment : AwkwardComments())
    EXPECT_TRUE(comments.contains(std::string(comment))) << comment;
  EXPECT_TRUE(std::ranges::is_sorted(day, {}, &ScriptedSpot::Second));
}

TEST(PracticeScript, SkimmersHearWhoIsNotSpottedAndAPostedSpotComesAmongTheOthersInTime) {
  Feed feed(6, 1, Origin);
  feed.Publish({.Station = "G4ABC", .Spotter = "Q1ZZZ"}, Origin + 600);
  const auto isPosted = [](const PublishedSpot& spot) { return spot.What.Spotter == "Q1ZZZ"; };
  EXPECT_TRUE(std::ranges::none_of(feed.Newest(Origin + 599, All), isPosted));
  const auto spots = feed.Newest(Origin + 660, All);
  const auto posted = std::ranges::find_if(spots, isPosted);
  ASSERT_NE(posted, spots.end());
  EXPECT_GE(posted->Time, Origin + 600);
  EXPECT_TRUE(std::ranges::is_sorted(spots, std::greater(), &PublishedSpot::Time));

  const auto heard = feed.OnTheAir(Origin + 660, All);
  EXPECT_TRUE(std::ranges::any_of(heard, [](const auto& spot) { return !spot.What.IsSpotted; }));
  EXPECT_TRUE(std::ranges::all_of(spots, [](const auto& spot) { return spot.What.IsSpotted; }));
}

}  // namespace
}  // namespace practice
