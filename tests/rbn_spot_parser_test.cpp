// Skimmer lines as spots: which are kept, and what their records and log lines say.
#include <gtest/gtest.h>

#include "rbn/spot_parser.h"
#include "test_host.h"

namespace brelwin {
namespace {

constexpr std::string_view CQ =
    "DX de KM3T-2-#:  14062.0  G4ABC/P        CW    24 dB  22 WPM  CQ      1201Z\r\n";

class RBNParser : public ::testing::Test {
 protected:
  RBNParser() {
    filter_.MaxMinutesBeforeAlertTime = 60;
    filter_.MaxMinutesAfterAlertTime = 60;
    filter_.DuplicateSpotFilteringPeriod = 10;
  }

  // Adds an alert of the station that many minutes from now.
  void AddAlert(std::string station, std::int64_t minutes) {
    SOTAAlert alert;
    alert.AlertKey = alert.ID = station + std::to_string(minutes);
    alert.stationBaseCallsign = std::move(station);
    alert.SummitDesignator = "G/LD-001";
    alert.SummitName = "Scafell Pike";
    alert.SummitPoints = 10;
    alert.SummitDescription = "Scafell Pike, 978m, 10";
    alert.OperatorName = "Ann";
    SetAlertDateAndTime(alert, AddMinutes(host_.Time.LocalNow(), minutes));
    alerts_.Add(std::make_shared<const SOTAAlert>(std::move(alert)));
  }

  // Parses the block into fresh new spots and gives their stations, joined by blanks.
  std::string Parse(std::string_view text) {
    new_ = SpotCollection();
    std::string errorText = "old";
    EXPECT_EQ(ParseReverseBeaconSpots(host_.World, text, filter_, known_, alerts_, recent_, new_, count_,
                                      errorText),
              -1);
    EXPECT_EQ(errorText, "");
    std::string stations;
    for (const auto& entry : new_) stations += (stations.empty() ? "" : " ") + entry.Item->Station;
    return stations;
  }

  const Spot& First() { return **new_.At(1); }

  test::TestHost host_;
  SpotFilter filter_;
  CallsignCollection known_;
  AlertCollection alerts_;
  RecentRBNSpots recent_;
  SpotCollection new_;
  std::int32_t count_ = 0;
};

TEST_F(RBNParser, ReadsTheFormsThatTheStreamSends) {
  filter_.IncludeAllSpotTypes = true;
  using Case = std::tuple<std::string, const char*, const char*, const char*, const char*>;
  const Case cases[] = {
      {"KM3T-2-#:  14100.0  CS3B           CW    24 dB  22 WPM  NCDXF B 2259Z", "1CS3BKM3T-2", "CS3B14.1",
       "NCDXF B 2259Z", "Via RBN  S/N=24 dB, Speed=22 WPM"},
      {"DL8LAS-3-#:  14046.00  OE3WHU/QRP     CW     7 dB  15 WPM  CQ      1513Z", "15:131OE3WHU/QRPDL8LAS-3",
       "OE3WHU14.046", "CQ", "Via RBN  S/N=7 dB, Speed=15 WPM"},
      {"EA8/DF4UE-#:  10114.1  SV1XYZ         CW    11 dB  21 WPM  cq      934Z\a\a", "9341SV1XYZEA8/DF4UE",
       "SV1XYZ10.114", "CQ", "Via RBN  S/N=11 dB, Speed=21 WPM"},
      {"W3OA-#:     7045.24  K1RTY          RTTY  24.5 dB  0 BPS  CQ      Z0102", "Z01021K1RTYW3OA",
       "K1RTY7.045", "CQ", "Via RBN  S/N=24.5 dB"},
      {"K1A", "1K1A", "0", "", "Via RBN  S/N=0 dB"},
      {"F8\aDGY-#:  x  \r DK0\r\nWCY  CW  1e30 dB  -1e30 WPM  Beacon  \xC3\xA9"
       "a\xC3\xA9"
       "bZ",
       "\xC3\xA9"
       "a:\xC3\xA9"
       "b1DK0WCYF8DGY",
       "DK0WCY0", "BEACON", "Via RBN  S/N=1000000000000000000000000000000 dB"},
  };
  for (const auto& [line, id, key, type, comment] : cases) {
    Parse("DX de " + line + "\r\n");
    ASSERT_EQ(new_.Count(), 1U) << line;
    EXPECT_EQ(First().ID, id);
    EXPECT_EQ(First().SpotKey, key);
    EXPECT_EQ(First().SpotTypeString, type);
    EXPECT_EQ(First().Comment, comment);
  }
}

TEST_F(RBNParser, SplitsTheBlockAtLineStartsAndKeepsTheTextBetweenThem) {
  EXPECT_EQ(Parse(""), "");
  EXPECT_EQ(Parse("Hello\r\n" + std::string(CQ)), "") << "a block that begins otherwise is ignored whole";
  EXPECT_EQ(count_, 0);

  const std::string other = "To ALL de W1AW:  all  of  this  and  more  stays  in  the  text  \r\n";
  EXPECT_EQ(Parse("DX de\r\nDX de  " + std::string(CQ) + other + std::string(CQ)), "G4ABC/P G4ABC/P");
  EXPECT_EQ(count_, 2) << "empty pieces do not count";
  EXPECT_EQ(
      First().Spot,
      "KM3T-2-#:  14062.0  G4ABC/P  CW  24 dB  22 WPM  CQ  1201ZTo ALL de W1AW:  all  of  this  and  more"
      "  stays  in  the  text   ---- <3>");
  EXPECT_EQ((*new_.At(2))->ID, "12:012G4ABC/PKM3T-2");

  std::string flood(CQ);
  while (flood.size() < 1000000) flood += other;
  Parse(flood);
  EXPECT_LT(First().Spot.size(), 70000U);
  EXPECT_EQ(First().UTCTime, "12:01");
}

TEST_F(RBNParser, DropsWhatTheUserDoesNotWant) {
  const std::string block =
      "DX de A1AA-#:  14062.0  G4ABC/P  CW  9 dB  20 WPM  CQ  1200Z\r\n"
      "DX de B1BB-#:  7032.0  DL1XYZ  CW  9 dB  20 WPM  CQ  1200Z\r\n"
      "DX de W1AW-#:  7033.0  K1ABC  RTTY  9 dB  45 BPS  CQ  1200Z\r\n"
      "DX de W1AW-#:  432100.0  F5XYZ  CW  9 dB  20 WPM  BEACON  1200Z\r\n";
  known_.Add("DL1XYZ", "DL1XYZ");
  AddAlert("G4ABC", 30);
  struct Case {
    void (*Set)(SpotFilter&);
    const char* Kept;
  };
  const Case cases[] = {
      {[](SpotFilter&) {}, "G4ABC/P DL1XYZ K1ABC"},
      {[](SpotFilter& f) { f.IncludeAllSpotTypes = true; }, "G4ABC/P DL1XYZ K1ABC F5XYZ"},
      {[](SpotFilter& f) { f.FilterKnownActivators = true; }, "DL1XYZ"},
      {[](SpotFilter& f) { f.FilterSotawatchMatchingAlert = true; }, "G4ABC/P"},
      {[](SpotFilter& f) { f.RBNStation = "g4*, k1abc"; }, "G4ABC/P K1ABC"},
      {[](SpotFilter& f) { f.RBNBand = "7"; }, "DL1XYZ K1ABC"},
      {[](SpotFilter& f) { f.RBNBand = "420", f.IncludeAllSpotTypes = true; }, "F5XYZ"},
      {[](SpotFilter& f) { f.RBNMode = "rtty"; }, "K1ABC"},
      {[](SpotFilter& f) { f.RBNSpotter = "A1AA, W*"; }, "G4ABC/P K1ABC"},
      {[](SpotFilter& f) { f.RBNSpotterExclude = "A1AA, W*"; }, "DL1XYZ"},
      {[](SpotFilter& f) { f.RBNSpotterExclude = " ", f.RBNSpotter = " "; }, "G4ABC/P DL1XYZ K1ABC"},
  };
  const auto usual = filter_;
  for (const auto& rule : cases) {
    filter_ = usual;
    rule.Set(filter_);
    EXPECT_EQ(Parse(block), rule.Kept);
    EXPECT_EQ(count_, 4);
  }
}

TEST_F(RBNParser, DropsRepeatedSpotsWithinThePeriodWhateverTheWallClockDoes) {
  filter_.FilterDuplicateSpots = true;
  const auto line = [](std::string_view frequency) {
    return "DX de A1AA-#:  " + std::string(frequency) + "  G4ABC  CW  9 dB  20 WPM  CQ  1200Z\r\n";
  };
  EXPECT_EQ(Parse(line("7026.0") + line("7026.04") + line("7026.6")), "G4ABC G4ABC");
  host_.Time.MoveTo(host_.Time.Now() + std::chrono::seconds(599));
  host_.Time.SetLocalTime(AddMinutes(host_.Time.LocalNow(), 300));
  EXPECT_EQ(Parse(line("7026.0")), "");
  host_.Time.MoveTo(host_.Time.Now() + std::chrono::seconds(1));
  host_.Time.SetLocalTime(AddMinutes(host_.Time.LocalNow(), -600));
  EXPECT_EQ(Parse(line("7026.0")), "G4ABC");
  EXPECT_EQ(recent_.Count(), 1U);

  filter_.FilterSotawatchMatchingAlert = true;
  EXPECT_EQ(Parse(line("10118.0")), "");
  AddAlert("G4ABC", 10);
  EXPECT_EQ(Parse(line("10118.0")), "G4ABC") << "what was dropped for another reason is no repetition";
}

TEST_F(RBNParser, MatchesToAlertsAndSaysSoInTheLog) {
  AddAlert("G4ABC", 40);
  AddAlert("G4ABC", 300);
  ASSERT_EQ(Parse(CQ), "G4ABC/P");
  const auto& spot = First();
  EXPECT_TRUE(spot.IsMatchedToAlert);
  EXPECT_EQ(spot.Comment, "Via RBN/Sotawatch Alert Match  S/N=24 dB, Speed=22 WPM");
  EXPECT_EQ(spot.SummitDesignator + spot.SummitName + spot.SummitDescription + spot.OperatorName,
            "G/LD-001Scafell PikeScafell Pike, 978m, 10Ann");
  EXPECT_EQ(spot.SummitPoints, 10);
  EXPECT_EQ(
      host_.TakeMessages(),
      " \nParseReverseBeaconSpots - Alert-matched spot received:\n"
      "2026-11-24 12:00:00|12:01|G4ABC/P|G/LD-001|Scafell Pike|10|14.062|CW|Ann|Via RBN/Sotawatch Alert "
      "Match  S/N=24 dB, Speed=22 WPM|KM3T-2|MatchesAlert=Yes|12:011G4ABC/PKM3T-2\n");
}

TEST_F(RBNParser, ServesTheEventQueueInALongBlockAndLeavesTheRestAtTheEnd) {
  std::string block;
  for (int i = 0; i < 1000; ++i) block += "DX de KM3T-2-#:  14100.0  K1AA  CW  24 dB  22 WPM  CQ  2259Z\r\n";
  Parse(block);
  EXPECT_EQ(count_, 1000);
  EXPECT_EQ(host_.Queue.Yields, 0) << "no time has passed";
  host_.Time.PerLook = std::chrono::milliseconds(5);
  Parse(block);
  EXPECT_EQ(count_, 1000);
  EXPECT_EQ(host_.Queue.Yields, 3);
  host_.Queue.OnYield = [this] { host_.World.ShuttingDown = true; };
  Parse(block);
  EXPECT_EQ(count_, 255);
}

TEST_F(RBNParser, TellsOfAnnouncedStationsThatAreHeardAtOtherTimesEvenWhenDropped) {
  AddAlert("G4ABC", 200);
  AddAlert("G4ABC", -61);
  known_.Add("G4ABC", "G4ABC");
  const std::string miss =
      " \nParseReverseBeaconSpots - Spot received for G4ABC/P who has 2 alerts in Sotawatch but none of them "
      "are within 60 minutes before or 60 minutes after the alert time.\n";
  filter_.FilterSotawatchMatchingAlert = true;
  EXPECT_EQ(Parse(CQ), "");
  EXPECT_EQ(host_.TakeMessages(), miss);

  filter_.FilterSotawatchMatchingAlert = false;
  EXPECT_EQ(Parse(CQ), "G4ABC/P");
  EXPECT_TRUE(host_.TakeMessages().starts_with(
      miss + " \nParseReverseBeaconSpots - Spot of known activator received, NOT alert matched:\n"));
}

}  // namespace
}  // namespace brelwin
