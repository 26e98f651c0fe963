// The power goes off at any file call of the whole program's day, and the program is started anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "alerts_page_text.h"
#include "base/text.h"
#include "cycle/program.h"
#include "faulty_files.h"
#include "feed_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

using std::chrono::seconds;

constexpr std::string_view SettingsPath = "/brelwin/Brelwin.INI";
constexpr std::string_view ModificationsPath = "/brelwin/SOTAAlertModifications.txt";

// An alert that is overridden, one moved by a spot of the activator's own, a skimmer's line, a log.
void Prepare(test::TestHost& host) {
  host.Disk.Put(
      SettingsPath,
      "[General]\r\nSecondsBetweenChecks=10\r\nSotawatchSpotsViaRSS=1\r\nEnableLogging1=1\r\n"
      "LogFile1=log.txt\r\nUnknown=kept\r\n"
      "[ReverseBeaconNetwork]\r\nRBNSpotsEnabled=1\r\nRBNCallsign=Q0ZZ\r\n"
      "MaxMinutesBeforeAlertTime=60\r\nMaxMinutesAfterAlertTime=60\r\n"
      "SOTAAlertsRefreshInterval=5\r\n[Gateway]\r\nSOTAWatchAlertArchivingIntervalInHours=0.5\r\n"
      "[URLTemplates]\r\nSotawatchRSS=http://feed.test/\r\nSotawatchAlerts=http://alerts.test/\r\n");
  host.Disk.Put("/brelwin/SOTAActivators.txt", "K1AA\r\nhalf a line");
  host.Internet.AnswerAlways("http://alerts.test/", test::Heading() +
                                                        test::Table({.Time = "12:10", .Comment = "S+3"}) +
                                                        test::Table({.Time = "11:30", .Callsign = "M0XYZ"}));
  host.Internet.AnswerAlways("http://feed.test/", test::FeedText({{.Title = "M0XYZ/P on G/LD-003 @ 14.062 CW",
                                                                   .Date = "24 Nov 2026 11:58:00",
                                                                   .PostedBy = "M0XYZ"}}));
}

void LiveADay(test::TestHost& host, Host world) {
  host.Sockets.Peer(
      test::ScriptedPeer()
          .Accepts()
          .Sends("Please enter your callsign: ")
          .Expects("Q0ZZ\r\n")
          .Sends("DX de KM3T-2-#:  14062.0  G4ABC          CW    24 dB  22 WPM  CQ      1201Z\r\n",
                 seconds(12)));
  host.Queue.HasQuit = false;
  Program brelwin(world);
  brelwin.Start({}, {});
  host.Queue.RunFor(seconds(40));
  brelwin.Controls().Spots.txtMaximumSpotsInList.Text = "150";
  brelwin.Quit();
}

std::string Sorted(const std::string& text) {
  std::string sorted;
  auto lines = SplitLines(text);
  std::sort(lines.begin(), lines.end());
  for (const auto line : lines) sorted.append(line).append("\n");
  return sorted;
}

// What must not depend on where the first day ended.
std::string WhatIsLeft(const test::TestHost& host) {
  return host.Disk.Text(SettingsPath) + host.Disk.Text("/brelwin/SOTAAlerts.txt") +
         Sorted(host.Disk.Text("/brelwin/SOTAActivators.txt"));
}

// A command that was acted on but not yet remembered is acted on again, with the same entry.
void ExpectEveryModification(const test::TestHost& expected, const test::TestHost& host) {
  const auto wanted = expected.Disk.Text(ModificationsPath);
  const auto text = host.Disk.Text(ModificationsPath);
  for (const auto line : SplitLines(wanted))
    ASSERT_TRUE(Contains(text, std::string(line) + "\r\n")) << line << "\n" << text;
}

TEST(PowerOff, AtAnyFileCallOfADayLosesNothingThatTheNextOneCouldNotMend) {
  test::TestHost undisturbed;
  Prepare(undisturbed);
  test::FaultyFiles counted(undisturbed.Disk);
  LiveADay(undisturbed, undisturbed.WithFiles(counted));
  LiveADay(undisturbed, undisturbed.World);
  const auto expected = WhatIsLeft(undisturbed);
  EXPECT_TRUE(Contains(expected, "MaximumSpotsInList=150")) << expected;
  EXPECT_EQ(SplitLines(undisturbed.Disk.Text(ModificationsPath)).size(), 3U);
  ASSERT_GT(counted.Calls(), 40);
  for (int call = 1; call <= counted.Calls(); ++call) {
    test::TestHost host;
    Prepare(host);
    test::FaultyFiles files(host.Disk);
    files.PowerOffAtCall = call;
    LiveADay(host, host.WithFiles(files));
    ASSERT_TRUE(Contains(host.Disk.Text(SettingsPath), "Unknown=kept")) << call;
    LiveADay(host, host.World);
    ASSERT_EQ(WhatIsLeft(host), expected) << "power off at call " << call << "\n" << host.EventLog();
    ExpectEveryModification(undisturbed, host);
  }
}

}  // namespace
}  // namespace brelwin
