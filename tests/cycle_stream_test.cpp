// Stories of the whole program with alerts and the skimmer stream: announced, heard, matched, shown and
// logged.
#include <gtest/gtest.h>

#include <optional>

#include "base/text.h"
#include "program_story.h"

namespace brelwin {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using test::AlertsAddress;
using test::FeedAddress;
using test::HeardLine;
using test::ScriptedPeer;

constexpr std::string_view Report = "/brelwin/SOTAAlerts.txt";

const std::string OtherLine =
    "DX de LZ3CB-#:   7018.20  RW1M           CW    10 dB  18 WPM  CQ      1201Z\r\n";

class StreamStory : public ::testing::Test, protected test::ProgramStory {
 protected:
  StreamStory() { SetStream("RBNSpotsEnabled=1\r\n"); }

  void SetStream(const std::string& stream) {
    Settings("SecondsBetweenChecks=10\r\n", stream + "RBNMaxMinutesSinceLastRawSpotReceived=5\r\n",
             "SOTAWatchAlertArchivingIntervalInHours=0.5\r\n");
  }
};

TEST_F(StreamStory, AnAnnouncedActivatorIsMatchedShownAndExplained) {
  Sockets.Peer(LoggingIn().Sends(OtherLine + HeardLine, seconds(12)));
  Brelwin.Start({}, {});
  EXPECT_TRUE(Disk.Text(Report).empty()) << "alerts are read by the first check";
  Queue.RunFor(seconds(40));
  EXPECT_TRUE(Contains(Disk.Text(Report), "12:10 G4ABC G/LD-001")) << Disk.Text(Report);

  const auto text = ListText();
  const auto lines = SplitLines(text);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[0].starts_with("12:01  G4ABC       G/LD-001    Scafell Pike "))
      << "the last line is on top";
  EXPECT_TRUE(Contains(lines[0], "Via RBN/Sotawatch Alert Match  S/N=24 dB, Speed=22 WPM"));
  EXPECT_TRUE(Contains(lines[1], "RW1M"));
  EXPECT_TRUE(ListedSpots().at(0)->IsMatchedToAlert);
  List().Select(*ListedSpots().at(0));
  EXPECT_TRUE(Contains(Window().Spots.lblSpotDetails.Caption.Get(), "G/LD-001"));
  EXPECT_TRUE(Contains(Window().Spots.lblSources.Caption.Get(),
                       "Alerts: 1 by the alerts page, announcements of 12:00, "));
}

// Also when the spots themselves are dropped.
TEST_F(StreamStory, AnAnnouncedStationThatDidNotMatchSaysWhy) {
  SetStream("RBNSpotsEnabled=1\r\nFilterSotawatchMatchingAlert=1\r\n");
  Internet.AnswerAlways(AlertsAddress,
                        test::Heading() + test::Table({.Time = "16:10"}) +
                            test::Table({.Time = "12:10", .Callsign = "K2AAA", .Comment = "cancelled"}));
  Sockets.Peer(LoggingIn().Sends(HeardLine + Replace(HeardLine, "G4ABC", "K2AAA"), seconds(12)));
  std::string said;
  auto& caption = Window().RBN.lblUnmatchedSpot.Caption;
  const auto watch = caption.WhenChanged([&] { said += caption.Get() + "\n"; });
  Brelwin.Start({}, {});
  Queue.RunFor(seconds(40));
  EXPECT_TRUE(Contains(EventLog(), "Spot received for G4ABC who has 1 alerts in Sotawatch but none of them"));
  EXPECT_TRUE(ListedSpots().empty());
  EXPECT_TRUE(said.starts_with("No match: 189 minutes outside the only alert, G4ABC for")) << said;
  EXPECT_TRUE(said.ends_with("K2AAA for 2026-11-24 12:10 UTC on G/LD-001 was cancelled by its activator.\n"))
      << said;
}

TEST_F(StreamStory, AlertsAreRefreshedWhenDueAndAFailedRefreshIsTriedAtEveryCheck) {
  Sockets.Peer(LoggingIn());
  Brelwin.Start({}, {});
  Queue.RunFor(minutes(6));
  EXPECT_EQ(ReadsOf(AlertsAddress), 1U) << "strictly more than five minutes";
  Queue.RunFor(minutes(1));
  EXPECT_EQ(ReadsOf(AlertsAddress), 2U);

  Internet.Forget(AlertsAddress);
  Disk.Put(Report, "");
  Queue.RunFor(minutes(8));
  EXPECT_GT(ReadsOf(AlertsAddress), 4U);
  EXPECT_TRUE(Window().Spots.lblNoSotawatchConnection.Visible);
  EXPECT_TRUE(Contains(Disk.Text(Report), "G4ABC")) << "rewritten from the alerts in memory";
  EXPECT_TRUE(Disk.Exists("/brelwin/SOTAAlerts_202611241200.txt"));
  Queue.RunFor(minutes(30));
  EXPECT_TRUE(Disk.Exists("/brelwin/SOTAAlerts_202611241231.txt"));
  auto& enabled = Window().RBN.chkReverseBeaconSpotsEnabled;
  enabled.Value = false;
  enabled.Click();
  EXPECT_FALSE(Window().Spots.lblNoSotawatchConnection.Visible)
      << "alerts that are not wanted are not missed";
}

TEST_F(StreamStory, TheStatusTellsWhyTheAlertsAreNotRead) {
  const auto says = [this](const std::string& text) {
    return Contains(Window().Spots.lblSources.Caption.Get(), text);
  };
  const auto& sources = Window().Spots.lblSources.Caption;
  Sockets.Peer(LoggingIn());
  Internet.Forget(AlertsAddress);
  Brelwin.Start({}, {});
  Queue.RunFor(minutes(2) + seconds(1));
  EXPECT_TRUE(says("Alerts: not read yet; failing since 12:00 (Unable to open URL), next attempt at 12:02:"))
      << sources.Get();

  Internet.AnswerAlways(AlertsAddress, test::Heading() + test::Table({.Time = "12:10"}));
  Queue.RunFor(seconds(20));
  EXPECT_TRUE(says("Alerts: 1 by the alerts page, announcements of 12:02, 0 min old |")) << sources.Get();

  Internet.AnswerAlways(AlertsAddress, "500 Internal Server Error");
  Queue.RunFor(minutes(7));
  EXPECT_TRUE(
      says("announcements of 12:02, 7 min old; failing since 12:08 (The page holds no day of alerts) |"))
      << sources.Get();
}

TEST_F(StreamStory, WithTheStreamOffNeitherAlertsNorStreamAreTouchedButCommandsAre) {
  SetStream("RBNSpotsEnabled=0\r\n");
  Internet.AnswerAlways(FeedAddress,
                        test::FeedText({test::FeedItemText("G4ABC/P on G/LD-001 @ 14.062 CW",
                                                           test::PubDate("11:58:00"), "Posted by G4ABC")}));
  Brelwin.Start({}, {});
  Queue.RunFor(minutes(2));
  EXPECT_TRUE(Sockets.Tried.empty());
  EXPECT_FALSE(Disk.Exists(Report));
  EXPECT_TRUE(Contains(Disk.Text("/brelwin/SOTAAlertModifications.txt"), "ADD||"));
  EXPECT_EQ(ReadsOf(AlertsAddress), 1U) << "read once, for the command";
}

TEST_F(StreamStory, SpotsOfAConnectionThatEndedDoNotWaitForTheNextOne) {
  SetStream("RBNSpotsEnabled=1\r\nRBNConnectionTimeout=60\r\n");
  Sockets.Peer(LoggingIn().Sends(HeardLine, seconds(12)).Closes());
  Sockets.Peer(ScriptedPeer());
  std::optional<bool> wasShown;
  Queue.OnYield = [&] {
    const bool isWaiting = Sockets.Tried.size() == 2;
    if (isWaiting && !wasShown) wasShown = Contains(ListText(), "G4ABC");
  };
  Brelwin.Start({}, {});
  Queue.RunFor(minutes(1));
  EXPECT_EQ(wasShown, true);
}

TEST_F(StreamStory, SwitchedOffWhileTheAlertsPageIsReadTheStreamStaysOff) {
  Sockets.Peer(ScriptedPeer().Refuses());
  Internet.Forget(AlertsAddress);
  Internet.Answer(AlertsAddress, {.Body = test::Heading(), .Delay = seconds(5)});
  Brelwin.Start({}, {});
  Queue.OnYield = [&] {
    auto& box = Window().RBN.chkReverseBeaconSpotsEnabled;
    if (ReadsOf(AlertsAddress) == 0 || !box.Value) return;
    box.Value = false;
    box.Click();
  };
  Queue.RunFor(minutes(3));
  EXPECT_EQ(Sockets.Tried.size(), 1U);
  EXPECT_TRUE(Contains(Window().Spots.lblSources.Caption.Get(), "Reverse Beacon Network: off"));
}

TEST_F(StreamStory, ABoxClickedDuringTheStartStaysAsItWas) {
  Sockets.Peer(LoggingIn().Sends(HeardLine, seconds(12)));
  Queue.OnYield = [&] {
    if (Sockets.Tried.empty()) return;
    Queue.OnYield = nullptr;
    auto& box = Window().RBN.chkReverseBeaconSpotsEnabled;
    box.Value = false;
    box.Click();
  };
  Brelwin.Start({}, {});
  Queue.RunFor(seconds(40));
  EXPECT_TRUE(Window().RBN.chkReverseBeaconSpotsEnabled.Value);
  EXPECT_TRUE(Contains(ListText(), "G4ABC"));
}

TEST_F(StreamStory, AnOutageIsToldFromItsBeginAndWithTheNextAttempt) {
  Sockets.Peer(ScriptedPeer().Refuses());
  const auto status = [this] { return Window().RBN.lblRBNStatus.Caption.Get(); };
  Brelwin.Start({}, {});
  EXPECT_TRUE(
      status().ends_with("no connection since 12:00:00 (Connection refused), next attempt at 12:00:10"))
      << status();
  Queue.RunFor(seconds(25));
  EXPECT_TRUE(
      status().ends_with("no connection since 12:00:00 (Connection refused), next attempt at 12:00:30"))
      << status();
}

}  // namespace
}  // namespace brelwin
