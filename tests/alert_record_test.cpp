// The alert record, its delimited data, the collection that holds alerts, and the report of them.
#include <gtest/gtest.h>

#include "alert_properties.h"
#include "alerts/alert_collection.h"
#include "alerts/alerts_report.h"
#include "alerts/sota_alert.h"
#include "radio/dates.h"
#include "random_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

SOTAAlert AlertOf(std::string key, std::string station, std::string day = "2026-11-24") {
  SOTAAlert alert;
  alert.AlertKey = alert.ID = std::move(key);
  alert.Station = alert.stationBaseCallsign = std::move(station);
  SetAlertDateAndTime(alert, *ReadDateTime(day + " 10:00"));
  alert.UTCAlertTimeStr = "10:00";
  return alert;
}

AlertPointer Shared(SOTAAlert alert) {
  return std::make_shared<const SOTAAlert>(std::move(alert));
}

TEST(DelimitedData, TakesWhatAShortOrStrangeLineHolds) {
  auto alert = AlertOf("K", "G4ABC");
  EXPECT_FALSE(SetDelimitedData(alert, "no date||ignored||M0XYZ||M0XYZ||G/SP-004"));
  EXPECT_EQ(alert.UTCAlertTimeStr, "10:00");
  EXPECT_TRUE(alert.UTCAlertDateAndTime);
  EXPECT_EQ(alert.SummitDesignator, "G/SP-004");
  EXPECT_EQ(alert.AlertKey, "K");
  EXPECT_TRUE(SetDelimitedData(alert, "||||||||||||||||||12.9||-1e30||2||NEW||more"));
  EXPECT_EQ(alert.MaxMinutesBeforeAlertTime, 12);
  EXPECT_EQ(alert.MaxMinutesAfterAlertTime, std::numeric_limits<std::int32_t>::min());
  EXPECT_TRUE(alert.IsSelfSpotAlert);
  EXPECT_EQ(alert.ID, "NEW");
}

TEST(DelimitedData, KeepsItsFieldsApartWhateverTheyHold) {
  auto alert = AlertOf("K", "G4ABC");
  alert.Comment = "|a|| b|";
  alert.FrequencyModes = "14-cw|";
  alert.MaxMinutesBeforeAlertTime = 30;
  const auto line = DelimitedData(alert);
  EXPECT_TRUE(line.ends_with("|||a- b|||||14-cw|||30||0||0||K")) << line;
  EXPECT_TRUE(SetDelimitedData(alert, line));
  EXPECT_EQ(alert.MaxMinutesBeforeAlertTime, 30);
  EXPECT_EQ(alert.ID, "K");
  test::RandomText random(7, {"|", "||", " ", "aZ", "\r\n", std::string_view("\0", 1), "2026-11-24 10:00"});
  for (int round = 0; round < 3000; ++round) {
    const auto bytes = random.Next(20);
    ASSERT_TRUE(test::DelimitedDataReadsBack(bytes)) << bytes;
  }
}

TEST(AlertsReport, HasADayAHeadingAndKeepsThePointWordOfShortDescriptions) {
  AlertCollection alerts;
  const auto add = [&alerts](std::string day, std::string description, bool isSelfSpot = false) {
    auto alert = AlertOf(std::to_string(alerts.Count()), "G4ABC", std::move(day));
    alert.SummitDesignator = "G/LD-001";
    alert.SummitDescription = std::move(description);
    alert.Comment = "hi";
    alert.Spotter = "Q0ZZ";
    alert.IsSelfSpotAlert = isSelfSpot;
    alerts.Add(Shared(std::move(alert)));
  };
  add("2026-11-24", "");
  add("2026-11-24", "Hill, 950m, 11");
  add("2026-11-24", "\xC3\xA9");
  add("2026-11-25", "Hill, 950m, 8");
  add("2026-11-25", "Hill, 950m, 1", true);
  EXPECT_EQ(AlertsReportText(alerts),
            "===== 2026-11-24 =====\r\n"
            "10:00 G4ABC G/LD-001   Comment: [hi] (Posted by Q0ZZ)\r\n"
            "10:00 G4ABC G/LD-001 Hill, 950m, 11 point Comment: [hi] (Posted by Q0ZZ)\r\n"
            "10:00 G4ABC G/LD-001 \xC3\xA9 point Comment: [hi] (Posted by Q0ZZ)\r\n"
            " \r\n"
            "===== 2026-11-25 =====\r\n"
            "10:00 G4ABC G/LD-001 Hill, 950m, 8 points Comment: [hi] (Posted by Q0ZZ)\r\n"
            "10:00 G4ABC G/LD-001 *Self-spot Alert* Self-spot Comment: [hi] (Posted by Q0ZZ)\r\n");

  test::TestHost host;
  EXPECT_TRUE(WriteAlertsReport(host.World, "", alerts));
  EXPECT_EQ(host.Disk.Text("/brelwin/SOTAAlerts.txt"), AlertsReportText(alerts));
  EXPECT_TRUE(WriteAlertsReport(host.World, "/elsewhere/archive.txt", AlertCollection()));
  EXPECT_TRUE(host.Disk.Exists("/elsewhere/archive.txt"));
  host.Disk.ReadOnly = true;
  EXPECT_FALSE(WriteAlertsReport(host.World, "", alerts));
}

}  // namespace
}  // namespace brelwin
