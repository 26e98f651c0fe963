// The power goes off at any file call of the whole program's day, and the program is started anew.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "faulty_files.h"
#include "program_story.h"

namespace brelwin {
namespace {

using std::chrono::seconds;

constexpr std::string_view SettingsPath = "/brelwin/Brelwin.INI";
constexpr std::string_view ModificationsPath = "/brelwin/SOTAAlertModifications.txt";

// An alert that is overridden, one moved by a spot of the activator's own, a skimmer's line, a log.
struct Day : test::ProgramStory {
  Day() {
    Settings("SecondsBetweenChecks=10\r\nEnableLogging1=1\r\nLogFile1=log.txt\r\nUnknown=kept\r\n",
             "RBNSpotsEnabled=1\r\n", "SOTAWatchAlertArchivingIntervalInHours=0.5\r\n");
    Disk.Put("/brelwin/SOTAActivators.txt", "K1AA\r\nhalf a line");
    Internet.AnswerAlways(test::AlertsAddress, test::Heading() +
                                                   test::Table({.Time = "12:10", .Comment = "S+3"}) +
                                                   test::Table({.Time = "11:30", .Callsign = "M0XYZ"}));
    Internet.AnswerAlways(
        test::FeedAddress,
        test::FeedText({test::FeedItemText("M0XYZ/P on G/LD-003 @ 14.062 CW", test::PubDate("11:58:00"),
                                           "CQ Posted by M0XYZ")}));
  }

  void Live(Host world) {
    Sockets.Peer(LoggingIn().Sends(test::HeardLine, seconds(12)));
    Queue.HasQuit = false;
    Program brelwin(world);
    brelwin.Start({}, {});
    Queue.RunFor(seconds(40));
    brelwin.Controls().Spots.txtMaximumSpotsInList.Text = "150";
    brelwin.Quit();
  }
};

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
  Day undisturbed;
  test::FaultyFiles counted(undisturbed.Disk);
  undisturbed.Live(undisturbed.WithFiles(counted));
  undisturbed.Live(undisturbed.World);
  const auto expected = WhatIsLeft(undisturbed);
  EXPECT_TRUE(Contains(expected, "MaximumSpotsInList=150")) << expected;
  EXPECT_EQ(SplitLines(undisturbed.Disk.Text(ModificationsPath)).size(), 3U);
  ASSERT_GT(counted.Calls(), 40);
  for (int call = 1; call <= counted.Calls(); ++call) {
    Day host;
    test::FaultyFiles files(host.Disk);
    files.PowerOffAtCall = call;
    host.Live(host.WithFiles(files));
    ASSERT_TRUE(Contains(host.Disk.Text(SettingsPath), "Unknown=kept")) << call;
    host.Live(host.World);
    ASSERT_EQ(WhatIsLeft(host), expected) << "power off at call " << call << "\n" << host.EventLog();
    ExpectEveryModification(undisturbed, host);
  }
}

}  // namespace
}  // namespace brelwin
