// What activators and trusted spotters command with a spot: alerts removed and added, once each, whatever
// happens in between.
#include <gtest/gtest.h>

#include "alerts/alert_commands.h"
#include "alerts/alerts_page.h"
#include "alerts_page_text.h"
#include "core/ini_utilities.h"
#include "radio/dates.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::Heading;
using test::Table;

constexpr const char* SettingsPath = "/brelwin/Brelwin.INI";
constexpr const char* ModificationsPath = "/brelwin/SOTAAlertModifications.txt";
constexpr const char* WaitingPath = "/brelwin/SOTAAlertCommandsWaiting.txt";

// One run of the program, as far as commands need it. It is 2026-11-24 12:00 UTC.
class ProgramRun {
 public:
  explicit ProgramRun(Host host) : host_(std::move(host)) {
    filter_.MaxMinutesBeforeAlertTime = 60;
    filter_.MaxMinutesAfterAlertTime = 60;
  }

  void ReadPage() {
    std::string errorText;
    TakeAlertsFromPage(host_, Page, Page.size(), {"", 60, 0}, Alerts, known_, errorText);
    commands_.CarryOutWaiting(Scene());
  }

  void Take(const std::vector<SpotPointer>& oldestFirst) {
    SpotCollection spots;
    for (const auto& spot : oldestFirst) spots.AddInFront(spot, spot->ID);
    commands_.CarryOut(spots, Scene());
  }

  std::string Keys() const {
    std::string keys;
    for (const auto& entry : Alerts.All()) keys += entry.Item.Alert->AlertKey + "\n";
    return keys;
  }

  AlertCollection Alerts;
  std::string Page = Heading();
  int SettingsFilesMade = 0;
  bool LogAlerts = false;

 private:
  AlertCommandScene Scene() {
    return {Alerts, filter_, [](const Spot&) { return false; }, LogAlerts};
  }

  bool MakeSettingsFile() {
    if (host_.Disk.Exists(SettingsPath)) return true;
    ++SettingsFilesMade;
    host_.Disk.Write(SettingsPath, "[General]\r\nSounds=1\r\n", FileAccess::OwnerOnly);
    return true;
  }

  Host host_;
  SpotFilter filter_;
  CallsignCollection known_;
  AlertCommands commands_{host_, CommandMemory(host_, SettingsPath, [this] { return MakeSettingsFile(); })};
};

SpotPointer SpotOf(const std::string& station, const std::string& clock, const std::string& comment,
                   const std::string& spotter = "") {
  auto spot = std::make_shared<Spot>();
  spot->Station = station + "/P";
  spot->stationBaseCallsign = station;
  spot->Spotter = spotter.empty() ? station : spotter;
  spot->IsSelfSpot = spotter.empty();
  spot->SpotterIsTrustedSpotter = !spotter.empty();
  spot->Comment = comment;
  spot->SummitDesignator = "G/LD-003";
  spot->FrequencyString = "7.032";
  spot->ModeString = "CW";
  spot->UTCDateTime = ReadDateTime("2026-11-24 " + clock);
  spot->ID = CompactText(*spot->UTCDateTime) + spot->Station + spot->Spotter;
  return spot;
}

const std::string PageOfTwo = Heading() + Table({.Time = "11:30"}) + Table({.Time = "20:00"});
const std::string FirstData =
    "2026-11-24 11:30:00||11:30||G4ABC||G4ABC||G/LD-001||Ann||||G4ABC||14.062-cw||0||0||0||"
    "2026-11-24 11:30:00_G4ABC_G/LD-001_";
const std::string SpotData =
    "2026-11-24 11:45:00||11:45||G4ABC/P||G4ABC||G/LD-003||||moved - now||G4ABC||7.032 CW||0||90||-1||"
    "!SPOT_ALERT!_202611241145_G4ABC_G/LD-003";

TEST(AlertCommands, ASelfSpotReplacesTheAlertsAroundItsTime) {
  test::TestHost host;
  host.Disk.Put("/brelwin/SOTAAlertDurationOverrides.ini", "[G4ABC]\nMaxMinutesAfterAlertTime=0\n");
  ProgramRun run(host.World);
  run.Page = PageOfTwo;
  run.ReadPage();
  host.Disk.Put("/brelwin/SOTAAlertDurationOverrides.ini", "[G4ABC]\nMaxMinutesAfterAlertTime=90\n");
  run.LogAlerts = true;
  run.Take({SpotOf("G4ABC", "11:45", "moved || now")});
  EXPECT_EQ(run.Keys(), "!SPOT_ALERT!_202611241145_G4ABC_G/LD-003\n2026-11-24 20:00:00_G4ABC_G/LD-001_\n");
  EXPECT_EQ(host.Disk.Text(ModificationsPath), "DEL||" + FirstData + "\r\nADD||" + SpotData + "\r\n");
  const std::string now = "2026-11-24 12:00:00: ";
  EXPECT_EQ(host.EventLog(), now + "GetSotawatchSpots - Self-spot of G4ABC/P received with this comment: {" +
                                 "moved || now}\r\n" + now + "GetSotawatchSpots - Removing alerts:\r\n" +
                                 now + FirstData + "\r\n" + now + "GetSotawatchSpots - Adding alert:\r\n" +
                                 now + SpotData + "\r\n");
  EXPECT_TRUE(Contains(host.Disk.Text("/brelwin/SOTAAlertsAfterSelfSpots_202611241200.txt"),
                       "11:45 G4ABC/P G/LD-003 *Self-spot Alert* Self-spot Comment: [moved || now]"));

  // The next reading of the page gives the same alerts.
  host.Disk.Delete("/brelwin/SOTAAlertDurationOverrides.ini");
  const auto keys = run.Keys();
  run.ReadPage();
  EXPECT_EQ(run.Keys(), keys);
}

TEST(AlertCommands, AnOptOutOnlyRemovesAndATrustedSpotterMayCommand) {
  test::TestHost host;
  ProgramRun run(host.World);
  run.Page = PageOfTwo;
  run.ReadPage();
  run.LogAlerts = true;
  run.Take({SpotOf("G4ABC", "11:45", "no rBn n pse", "M0XYZ"),
            SpotOf("G4ABC", "11:46", "RBNN {Via Tarnlink}", "M0XYZ"),
            SpotOf("K1AA", "11:47", "RBNN", "M0XYZ")});
  EXPECT_EQ(run.Keys(), "2026-11-24 20:00:00_G4ABC_G/LD-001_\n");
  EXPECT_EQ(host.Disk.Text(ModificationsPath), "DEL||" + FirstData + "\r\n");
  EXPECT_TRUE(Contains(host.EventLog(),
                       "GetSotawatchSpots - Spot of G4ABC/P received from trusted chaser M0XYZ "
                       "with this comment: {no rBn n pse}\r\n"));
  EXPECT_FALSE(Contains(host.EventLog(), "Tarnlink"));
  EXPECT_FALSE(host.Disk.Exists("/brelwin/SOTAAlertsAfterSelfSpots_202611241200.txt"));
  run.ReadPage();
  EXPECT_EQ(run.Keys(), "2026-11-24 20:00:00_G4ABC_G/LD-001_\n");
}

TEST(AlertCommands, AnOptOutReachesTheActivatorUnderEveryCallsign) {
  test::TestHost host;
  ProgramRun run(host.World);
  run.Page = Heading() + Table({.Time = "11:30", .Callsign = "DL/PA3XYZ/P"}) +
             Table({.Time = "11:40", .Callsign = "PA3XYZ & G4ABC"}) +
             Table({.Time = "11:50", .Callsign = "DL/PA3XYZ & HB9ABC"});
  run.ReadPage();
  run.Take({SpotOf("PA3XYZ", "11:45", "qrv")});
  EXPECT_TRUE(Contains(run.Keys(), "11:30:00_DLA3XYZ")) << "other commands go by the base callsign";
  run.Take({SpotOf("PA3XYZ", "11:46", "RBNN")});
  EXPECT_EQ(run.Keys(), "2026-11-24 11:40:00_G4ABC_G/LD-001_\n2026-11-24 11:50:00_HB9ABC_G/LD-001_\n");
}

TEST(AlertCommands, EachIsActedOnOnceInThisRunAndTheNext) {
  test::TestHost host;
  const auto early = SpotOf("G4ABC", "10:00", "early");
  const auto late = SpotOf("G4ABC", "11:00", "late");
  const auto sameTime = SpotOf("M0XYZ", "11:00", "same time");
  const auto next = SpotOf("K1AA", "11:00", "next");
  const auto overtaken = SpotOf("K1AA", "10:30", "overtaken");
  auto undated = SpotOf("N1ZZ", "11:00", "undated");
  undated->UTCDateTime.reset();
  const auto received = [&host](const std::string& comment) {
    return Split(host.EventLog(), "{" + comment + "}").size() - 1;
  };
  {
    ProgramRun run(host.World);
    run.Take({early, undated, late});
    undated->ID = "of another reading";
    run.Take({early, undated, late, sameTime});
    run.Take({overtaken, sameTime});
    EXPECT_EQ(run.SettingsFilesMade, 1);
  }
  clsINIUtilities settings(host.World);
  settings.INIPath = SettingsPath;
  EXPECT_EQ(settings.ReadStringKey("General", "LastAlertCommand"), "2026-11-24 11:00:00 " + sameTime->ID);
  {
    ProgramRun run(host.World);
    run.Take({early, overtaken, undated, late, sameTime, next});
    EXPECT_EQ(run.SettingsFilesMade, 0);
  }
  for (const auto* comment : {"early", "late", "same time", "next", "overtaken", "undated"})
    EXPECT_EQ(received(comment), 1U) << comment;
}

TEST(AlertCommands, ARememberedTimeInTheFutureSilencesNobody) {
  test::TestHost host;
  host.Disk.Put(SettingsPath, "[General]\r\nLastAlertCommand=2031-01-01 00:00:00 x\r\n");
  ProgramRun run(host.World);
  run.ReadPage();
  run.Take({SpotOf("G4ABC", "11:59", "before the start")});
  EXPECT_EQ(run.Alerts.Count(), 0U);
  host.Time.MoveTo(host.Time.Now() + std::chrono::hours(1));
  run.Take({SpotOf("G4ABC", "12:45", "later")});
  EXPECT_EQ(run.Alerts.Count(), 1U);
  EXPECT_TRUE(Contains(host.Disk.Text(SettingsPath), "LastAlertCommand=2026-11-24 12:45:00 "));
}

TEST(AlertCommands, ASlowClockMakesNoOldCommandNew) {
  test::TestHost host;
  const std::vector<SpotPointer> spots = {SpotOf("G4ABC", "12:03", "moved"),
                                          SpotOf("G4ABC", "12:04", "RBNN")};
  for (int run = 0; run < 2; ++run) {
    ProgramRun program(host.World);
    program.Take(spots);
    host.Time.MoveTo(host.Time.Now() + std::chrono::seconds(30));
  }
  EXPECT_EQ(Split(host.EventLog(), "{moved}").size(), 2U) << "received once";
}

TEST(AlertCommands, AllWaitForThePageAlsoOverTheEndOfTheRun) {
  test::TestHost host;
  host.Disk.Put(WaitingPath, "no command\r\n");
  {
    ProgramRun run(host.World);
    run.Take({SpotOf("G4ABC", "11:45", "RBNN"), SpotOf("M0XYZ", "11:45", "RBNN"),
              SpotOf("M0XYZ", "11:50", "qrv")});
    EXPECT_EQ(run.Alerts.Count(), 0U);
    EXPECT_FALSE(host.Disk.Exists(ModificationsPath));
  }
  ProgramRun run(host.World);
  run.Page = PageOfTwo + Table({.Time = "12:00", .Callsign = "M0XYZ"});
  run.LogAlerts = true;
  run.ReadPage();
  EXPECT_EQ(run.Keys(), "!SPOT_ALERT!_202611241150_M0XYZ_G/LD-003\n2026-11-24 20:00:00_G4ABC_G/LD-001_\n");
  EXPECT_FALSE(host.Disk.Exists(WaitingPath));
  EXPECT_TRUE(host.Disk.Exists("/brelwin/SOTAAlertsAfterSelfSpots_202611241200.txt"));
  EXPECT_TRUE(Contains(host.EventLog(), "not kept: no command\r\n"));
}

TEST(AlertCommands, WhatCannotBeWrittenIsTriedAgain) {
  test::TestHost host;
  ProgramRun run(host.World);
  run.Page = PageOfTwo;
  run.ReadPage();
  host.Disk.ReadOnly = true;
  run.Take({SpotOf("G4ABC", "11:45", "moved"), SpotOf("K1AA", "11:50", "RBNN")});
  EXPECT_FALSE(Contains(host.Disk.Text(SettingsPath), "LastAlertCommand"));
  host.Disk.ReadOnly = false;
  const auto keys = run.Keys();
  run.ReadPage();
  EXPECT_EQ(run.Keys(), keys);
  EXPECT_TRUE(Contains(host.Disk.Text(ModificationsPath), "ADD||"));
  EXPECT_TRUE(Contains(host.Disk.Text(SettingsPath), "LastAlertCommand=2026-11-24 11:50:00 "));
}

}  // namespace
}  // namespace brelwin
