// Which alerts a spot belongs to, and why.
#include <gtest/gtest.h>

#include "alerts/matching.h"
#include "base/text.h"
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

  void AddAlert(std::string key, const std::string& time, std::int32_t before = 0, std::int32_t after = 0) {
    SOTAAlert alert;
    alert.AlertKey = alert.ID = std::move(key);
    alert.Station = alert.stationBaseCallsign = "G4ABC";
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

TEST_F(Matching, TheNearestAlertWhoseWindowHoldsTheTimeWins) {
  AddAlert("none", "");
  AddAlert("a", "10:00");
  AddAlert("b", "10:40");
  AddAlert("far", "20:00");
  AddAlert("own", "15:00", 0, 240);
  AddAlert("negative", "15:00", -5, -5);
  using Case = std::tuple<const char*, const char*, std::size_t>;
  for (const auto& [clock, nearest, matches] :
       {Case{"08:59", "", 0}, Case{"08:59:01", "a", 1}, Case{"10:20", "a", 2}, Case{"10:21", "b", 2},
        Case{"11:30:59", "b", 2}, Case{"11:31", "b", 1}, Case{"12:11", "", 0}, Case{"14:00", "own", 2},
        Case{"16:31", "own", 1}, Case{"19:00", "far", 2}, Case{"19:01", "far", 1}}) {
    EXPECT_EQ(At(clock).NearestID, nearest) << clock;
    EXPECT_EQ(At(clock).Alerts.size(), matches) << clock;
    EXPECT_EQ(At(clock).NumberOfAlertsOutsideWindow, 6 - static_cast<int>(matches)) << clock;
  }
  EXPECT_EQ(At("14:00", true).NearestID, "negative");
  EXPECT_EQ(At("10:20").MinutesToNearest, 20);

  std::int32_t outside = -1;
  const auto best = GetBestMatchedAlert(host_.World, "G4abc", {}, alerts_, filter_, outside);
  ASSERT_TRUE(best) << "it is 12:00";
  EXPECT_EQ(best->ID, "b");
  EXPECT_EQ(outside, 5);
  host_.Time.Zone.Bias = 600;
  EXPECT_FALSE(GetBestMatchedAlert(host_.World, "G4ABC", {}, alerts_, filter_, outside));
  EXPECT_FALSE(GetBestMatchedAlert(host_.World, "M0XYZ", {}, alerts_, filter_, outside));
  EXPECT_EQ(outside, 0);
}

TEST_F(Matching, ItIsExplainedInWords) {
  const auto explain = [&](const std::string& clock) {
    return ExplainMatch("G4ABC", Time(clock), alerts_, filter_).Text;
  };
  EXPECT_EQ(explain("10:00"), "No match: no alert is for G4ABC.");
  AddAlert("none", "");
  EXPECT_EQ(explain("10:00"),
            "No match: the alert of G4ABC for an unreadable time on G/LD-001 cannot be placed in time.");
  AddAlert("a", "10:00");
  AddAlert("own", "20:00", 0, 1);
  EXPECT_EQ(explain("09:01"),
            "Matches the alert of G4ABC for 2026-11-24 10:00 UTC on G/LD-001: 59 minutes before the alert "
            "time (window 60 minutes before to 90 minutes after).");
  EXPECT_EQ(explain("20:03"),
            "No match: 2 minutes outside the nearest of 3 alerts, G4ABC for 2026-11-24 20:00 UTC on G/LD-001 "
            "(window 60 minutes before to 1 minute after, its own).");
  auto cancelled = *alerts_.Find("a");
  alerts_.Remove("a");
  alerts_.NoteWithdrawn(std::make_shared<const SOTAAlert>(cancelled), Withdrawal::Cancelled);
  EXPECT_EQ(explain("10:00"),
            "No match: the alert of G4ABC for 2026-11-24 10:00 UTC on G/LD-001 was cancelled by its "
            "activator.");
  EXPECT_TRUE(explain("19:00").starts_with("Matches"));
}

// A comment, the markers read in it, and the reference that alone lets in a spot four hours early.
TEST_F(Matching, AReferenceReadAsAMarkerIsTold) {
  for (const auto line :
       Split("S-5 and S+3|\"S-5\" and \"S+3\"|\nafter GM/SS-064, here|\"S-064\" in \"GM/SS-064\"|GM/SS-064\n"
             "ks-005|\"S-005\" in \"KS-005\"|KS-005\nhours-6|\"S-6\"|\nWS-0645|\"S-0645\"|\n"
             "GM/SS-001|\"S-001\" in \"GM/SS-001\"|\nS+2 at W6/SS-000|\"S+2\"|\nQRP||",
             "\n")) {
    const auto parts = Split(line, "|");
    SOTAAlert alert;
    alert.Comment = parts[0];
    SetAlertDateAndTime(alert, Time("14:00"));
    alert.MaxMinutesBeforeAlertTime = WindowOfAlert({}, parts[0]).Window.MinutesBefore;
    EXPECT_EQ(MarkersInWords(parts[0]), parts[1]);
    EXPECT_EQ(ReferenceThatMatches(alert, Time("10:00"), 0, filter_), parts[2]) << line;
    EXPECT_EQ(ReferenceThatMatches(alert, Time("13:00"), 0, filter_), "") << "it matches anyway";
    EXPECT_EQ(ReferenceThatMatches(alert, Time("10:00"), 240, filter_), "") << "by an override";
  }
}

}  // namespace
}  // namespace brelwin
