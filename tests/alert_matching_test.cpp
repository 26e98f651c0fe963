// Which alerts a spot belongs to.
#include <gtest/gtest.h>

#include "alerts/match_explanation.h"
#include "alerts/matching.h"
#include "radio/dates.h"
#include "test_host.h"

namespace brelwin {
namespace {

class Matching : public ::testing::Test {
 protected:
  Matching() {
    filter_.MaxMinutesBeforeAlertTime = 60;
    filter_.MaxMinutesAfterAlertTime = 90;
  }

  void AddAlert(std::string key, std::string time, std::int32_t before = 0, std::int32_t after = 0,
                std::string station = "G4ABC") {
    SOTAAlert alert;
    alert.AlertKey = alert.ID = std::move(key);
    alert.Station = alert.stationBaseCallsign = std::move(station);
    alert.SummitDesignator = "G/LD-001";
    if (!time.empty()) SetAlertDateAndTime(alert, Time(time));
    alert.MaxMinutesBeforeAlertTime = before;
    alert.MaxMinutesAfterAlertTime = after;
    alerts_.Add(std::make_shared<const SOTAAlert>(std::move(alert)));
  }

  static DateTime Time(const std::string& clock) { return *ReadDateTime("2026-11-24 " + clock); }

  AlertMatches At(const std::string& clock, bool defaultWindowOnly = false) {
    return GetMatchedAlerts(host_.World, "g4abc", Time(clock), defaultWindowOnly, alerts_, filter_);
  }

  test::TestHost host_;
  AlertCollection alerts_;
  SpotFilter filter_;
};

TEST_F(Matching, TheWindowHoldsBothItsEndsAndTruncatesTowardTheAlert) {
  AddAlert("a", "10:00");
  for (const auto* inside : {"09:00", "08:59:01", "10:00", "11:30", "11:30:59"})
    EXPECT_EQ(At(inside).NearestID, "a") << inside;
  for (const auto* outside : {"08:59", "11:31", "23:00"}) {
    EXPECT_EQ(At(outside).NumberOfAlertsOutsideWindow, 1) << outside;
    EXPECT_TRUE(At(outside).Alerts.empty());
  }
  filter_.MaxMinutesAfterAlertTime = 0;
  EXPECT_EQ(At("10:00:59").NearestID, "a");
  EXPECT_EQ(At("10:01").NearestID, "");
}

TEST_F(Matching, TheNearestWinsAndTheEarlierOfTwoAsNear) {
  AddAlert("none", "");
  AddAlert("a", "10:00");
  AddAlert("b", "10:40");
  AddAlert("far", "20:00");
  EXPECT_EQ(At("10:21").NearestID, "b");
  const auto both = At("10:20");
  EXPECT_EQ(both.NearestID, "a");
  EXPECT_EQ(both.MinutesToNearest, 20);
  EXPECT_EQ(both.Alerts.size(), 2U);
  EXPECT_EQ(both.NumberOfAlertsOutsideWindow, 2);
}

TEST_F(Matching, AnOwnWindowReplacesTheUsersSideBySide) {
  AddAlert("own", "10:00", 0, 300);
  AddAlert("negative", "10:00", -5, -5);
  EXPECT_EQ(At("14:00").NearestID, "own");
  EXPECT_EQ(At("09:00").Alerts.size(), 2U);
  EXPECT_EQ(At("09:00", true).NearestID, "negative");
  EXPECT_EQ(At("14:00", true).NumberOfAlertsOutsideWindow, 1);
}

TEST_F(Matching, StationsAreComparedExactlyAndTheMissingTimeIsNow) {
  AddAlert("now", "12:10");
  AddAlert("lower", "12:10", 0, 0, "g4abc");
  std::int32_t outside = -1;
  const auto best = GetBestMatchedAlert(host_.World, "G4abc", {}, alerts_, filter_, outside);
  ASSERT_TRUE(best);
  EXPECT_EQ(best->ID, "now");
  EXPECT_EQ(outside, 0);
  host_.Time.Zone.Bias = 600;
  EXPECT_FALSE(GetBestMatchedAlert(host_.World, "G4ABC", {}, alerts_, filter_, outside));
  EXPECT_EQ(outside, 1);
  EXPECT_FALSE(GetBestMatchedAlert(host_.World, "M0XYZ", {}, alerts_, filter_, outside));
  EXPECT_EQ(outside, 0);
}

TEST_F(Matching, ItIsExplainedInWords) {
  const auto explain = [&](const std::string& clock) {
    return ExplainMatch("G4ABC", Time(clock), alerts_, filter_);
  };
  EXPECT_EQ(explain("10:00").Text, "No match: no alert is for G4ABC.");
  AddAlert("none", "");
  EXPECT_EQ(explain("10:00").Text,
            "No match: the alert of G4ABC for an unreadable time on G/LD-001 cannot be placed in time.");
  AddAlert("a", "10:00");
  AddAlert("own", "20:00", 0, 1);
  EXPECT_EQ(
      explain("09:01").Text,
      "Matches the alert of G4ABC for 2026-11-24 10:00 UTC on G/LD-001: 59 minutes before the alert time "
      "(window 60 minutes before to 90 minutes after).");
  EXPECT_EQ(explain("20:03").Text,
            "No match: 2 minutes outside the nearest of 3 alerts, G4ABC for 2026-11-24 20:00 UTC on G/LD-001 "
            "(window 60 minutes before to 1 minute after, its own).");
  EXPECT_EQ(explain("20:03").MinutesOutside, 2);

  auto cancelled = *alerts_.Find("a");
  alerts_.Remove("a");
  alerts_.NoteWithdrawn(std::make_shared<const SOTAAlert>(cancelled), Withdrawal::Cancelled);
  EXPECT_EQ(explain("10:00").Verdict, MatchVerdict::Withdrawn);
  EXPECT_EQ(
      explain("10:00").Text,
      "No match: the alert of G4ABC for 2026-11-24 10:00 UTC on G/LD-001 was cancelled by its activator.");
  EXPECT_EQ(explain("08:00").Verdict, MatchVerdict::OutsideWindow);
  EXPECT_EQ(explain("19:00").Verdict, MatchVerdict::Matched);
}

}  // namespace
}  // namespace brelwin
