// Stories of the whole program with alerts and the skimmer stream: announced, heard, matched, shown and
// logged.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "alerts_page_text.h"
#include "base/text.h"
#include "cycle/program.h"
#include "feed_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using test::ScriptedPeer;

constexpr auto FeedAddress = "http://feed.test/rss";
constexpr auto AlertsAddress = "http://alerts.test/page";
constexpr std::string_view Prompt = "Please enter your callsign: ";
constexpr std::string_view Report = "/brelwin/SOTAAlerts.txt";

const std::string HeardLine =
    "DX de KM3T-2-#:  14062.0  G4ABC          CW    24 dB  22 WPM  CQ      1201Z\r\n";
const std::string OtherLine =
    "DX de LZ3CB-#:   7018.20  RW1M           CW    10 dB  18 WPM  CQ      1201Z\r\n";

class StreamStory : public ::testing::Test {
 protected:
  StreamStory() {
    Settings("RBNSpotsEnabled=1\r\n");
    Host.Internet.AnswerAlways(FeedAddress, test::FeedText({}));
    Host.Internet.AnswerAlways(AlertsAddress, test::Heading() + test::Table({.Time = "12:10"}));
  }

  void Settings(const std::string& stream) {
    Host.Disk.Put(
        "/brelwin/Brelwin.INI",
        "[General]\r\nSecondsBetweenChecks=10\r\nSotawatchSpotsViaRSS=1\r\n[ReverseBeaconNetwork]\r\n"
        "RBNCallsign=Q0ZZ\r\nMaxMinutesBeforeAlertTime=60\r\nMaxMinutesAfterAlertTime=60\r\n"
        "SOTAAlertsRefreshInterval=5\r\nRBNMaxMinutesSinceLastRawSpotReceived=5\r\n" +
            stream + "[Gateway]\r\nSOTAWatchAlertArchivingIntervalInHours=0.5\r\n[URLTemplates]\r\n" +
            "SotawatchRSS=" + FeedAddress + "\r\nSotawatchAlerts=" + AlertsAddress + "\r\n");
  }

  static ScriptedPeer LoggingIn() {
    return ScriptedPeer().Accepts().Sends(std::string(Prompt)).Expects("Q0ZZ\r\n").Sends("Hello, Q0ZZ!\r\n");
  }

  std::size_t ReadsOf(std::string_view url) const {
    std::size_t reads = 0;
    for (const auto& query : Host.Internet.Queries) reads += query.Url == url ? 1U : 0U;
    return reads;
  }

  SpotListBox& List() { return Brelwin.Controls().Spots.txtSPOTList; }

  test::TestHost Host;
  Program Brelwin{Host.World};
};

TEST_F(StreamStory, AnAnnouncedActivatorIsMatchedShownAndExplained) {
  Host.Sockets.Peer(LoggingIn().Sends(OtherLine + HeardLine, seconds(12)));
  Brelwin.Start({}, {});
  EXPECT_TRUE(Host.Disk.Text(Report).empty()) << "alerts are read by the first check";
  Host.Queue.RunFor(seconds(40));
  EXPECT_TRUE(Contains(Host.Disk.Text(Report), "12:10 G4ABC G/LD-001")) << Host.Disk.Text(Report);

  const auto lines = SplitLines(List().Text.Get());
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[0].starts_with("12:01  G4ABC       G/LD-001    Scafell Pike "))
      << "the last line is on top";
  EXPECT_TRUE(Contains(lines[0], "Via RBN/Sotawatch Alert Match  S/N=24 dB, Speed=22 WPM"));
  EXPECT_TRUE(Contains(lines[1], "RW1M"));
  EXPECT_TRUE(List().Spots.at(0)->IsMatchedToAlert);
  List().Select(*List().Spots.at(0));
  EXPECT_TRUE(Contains(Brelwin.Controls().Spots.lblSpotDetails.Caption.Get(), "G/LD-001"));
  EXPECT_TRUE(Contains(Brelwin.Controls().Spots.lblSources.Caption.Get(), "Alerts: 1, read at 12:00"));
}

// Also when the spots themselves are dropped.
TEST_F(StreamStory, AnAnnouncedStationThatDidNotMatchSaysWhy) {
  Settings("RBNSpotsEnabled=1\r\nFilterSotawatchMatchingAlert=1\r\n");
  Host.Internet.AnswerAlways(AlertsAddress,
                             test::Heading() + test::Table({.Time = "16:10"}) +
                                 test::Table({.Time = "12:10", .Callsign = "K2AAA", .Comment = "cancelled"}));
  Host.Sockets.Peer(LoggingIn().Sends(HeardLine + Replace(HeardLine, "G4ABC", "K2AAA"), seconds(12)));
  std::string said;
  auto& caption = Brelwin.Controls().RBN.lblUnmatchedSpot.Caption;
  const auto watch = caption.WhenChanged([&] { said += caption.Get() + "\n"; });
  Brelwin.Start({}, {});
  Host.Queue.RunFor(seconds(40));
  EXPECT_TRUE(
      Contains(Host.EventLog(), "Spot received for G4ABC who has 1 alerts in Sotawatch but none of them"));
  EXPECT_TRUE(List().Spots.empty());
  EXPECT_TRUE(said.starts_with("No match: 189 minutes outside the only alert, G4ABC for")) << said;
  EXPECT_TRUE(said.ends_with("K2AAA for 2026-11-24 12:10 UTC on G/LD-001 was cancelled by its activator.\n"))
      << said;
}

TEST_F(StreamStory, AlertsAreRefreshedWhenDueAndAFailedRefreshIsTriedAtEveryCheck) {
  Host.Sockets.Peer(LoggingIn());
  Brelwin.Start({}, {});
  Host.Queue.RunFor(minutes(6));
  EXPECT_EQ(ReadsOf(AlertsAddress), 1U) << "strictly more than five minutes";
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(ReadsOf(AlertsAddress), 2U);

  Host.Internet.Forget(AlertsAddress);
  Host.Disk.Put(Report, "");
  Host.Queue.RunFor(minutes(8));
  EXPECT_GT(ReadsOf(AlertsAddress), 4U);
  EXPECT_TRUE(Brelwin.Controls().Spots.lblNoSotawatchConnection.Visible);
  EXPECT_TRUE(Contains(Host.Disk.Text(Report), "G4ABC")) << "rewritten from the alerts in memory";
  EXPECT_TRUE(Host.Disk.Exists("/brelwin/SOTAAlerts_202611241200.txt"));
  Host.Queue.RunFor(minutes(30));
  EXPECT_TRUE(Host.Disk.Exists("/brelwin/SOTAAlerts_202611241231.txt"));
}

TEST_F(StreamStory, TheStatusTellsWhyTheAlertsAreNotRead) {
  const auto says = [this](const std::string& text) {
    return Contains(Brelwin.Controls().Spots.lblSources.Caption.Get(), text);
  };
  const auto& sources = Brelwin.Controls().Spots.lblSources.Caption;
  Host.Sockets.Peer(LoggingIn());
  Host.Internet.Forget(AlertsAddress);
  Brelwin.Start({}, {});
  Host.Queue.RunFor(minutes(2) + seconds(1));
  EXPECT_TRUE(says("Alerts: not read yet; failing since 12:00 (Unable to open URL), next attempt at 12:02:"))
      << sources.Get();

  Host.Internet.AnswerAlways(AlertsAddress, test::Heading() + test::Table({.Time = "12:10"}));
  Host.Queue.RunFor(seconds(20));
  EXPECT_TRUE(says("Alerts: 1, read at 12:02 |")) << sources.Get();

  Host.Internet.AnswerAlways(AlertsAddress, "500 Internal Server Error");
  Host.Queue.RunFor(minutes(7));
  EXPECT_TRUE(says("Alerts: 1, read at 12:02; failing since 12:08 (The page holds no day of alerts) |"))
      << sources.Get();
}

TEST_F(StreamStory, WithTheStreamOffNeitherAlertsNorStreamAreTouchedButCommandsAre) {
  Settings("RBNSpotsEnabled=0\r\n");
  Host.Internet.AnswerAlways(FeedAddress, test::FeedText({{.Title = "G4ABC/P on G/LD-001 @ 14.062 CW",
                                                           .Date = "24 Nov 2026 11:58:00",
                                                           .PostedBy = "G4ABC"}}));
  Brelwin.Start({}, {});
  Host.Queue.RunFor(minutes(2));
  EXPECT_TRUE(Host.Sockets.Tried.empty());
  EXPECT_FALSE(Host.Disk.Exists(Report));
  EXPECT_TRUE(Contains(Host.Disk.Text("/brelwin/SOTAAlertModifications.txt"), "ADD||"));
  EXPECT_EQ(ReadsOf(AlertsAddress), 1U) << "read once, for the command";
}

TEST_F(StreamStory, ALineCutByTheEndOfAConnectionIsNoSpotAndTheNextConnectionGoesOn) {
  Host.Sockets.Peer(LoggingIn().Sends(HeardLine + HeardLine.substr(0, 40), seconds(12)).Closes());
  Host.Sockets.Peer(LoggingIn().Sends(OtherLine, seconds(12)));
  Brelwin.Start({}, {});
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(SplitLines(List().Text.Get()).size(), 2U);
  EXPECT_EQ(Host.Sockets.Tried.size(), 2U);
  EXPECT_EQ(Host.Sockets.Tried.front(), std::pair(std::string("telnet.reversebeacon.net"), 7000));
}

TEST_F(StreamStory, SpotsOfAConnectionThatEndedDoNotWaitForTheNextOne) {
  Settings("RBNSpotsEnabled=1\r\nRBNConnectionTimeout=60\r\n");
  Host.Sockets.Peer(LoggingIn().Sends(HeardLine, seconds(12)).Closes());
  Host.Sockets.Peer(ScriptedPeer());
  std::optional<bool> wasShown;
  Host.Queue.OnYield = [&] {
    const bool isWaiting = Host.Sockets.Tried.size() == 2;
    if (isWaiting && !wasShown) wasShown = Contains(List().Text.Get(), "G4ABC");
  };
  Brelwin.Start({}, {});
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(wasShown, true);
}

TEST_F(StreamStory, SwitchedOffWhileTheAlertsPageIsReadTheStreamStaysOff) {
  Host.Sockets.Peer(ScriptedPeer().Refuses());
  Host.Internet.Forget(AlertsAddress);
  Host.Internet.Answer(AlertsAddress, {.Body = test::Heading(), .Delay = seconds(5)});
  Brelwin.Start({}, {});
  Host.Queue.OnYield = [&] {
    auto& box = Brelwin.Controls().RBN.chkReverseBeaconSpotsEnabled;
    if (ReadsOf(AlertsAddress) == 0 || !box.Value) return;
    box.Value = false;
    box.Click();
  };
  Host.Queue.RunFor(minutes(3));
  EXPECT_EQ(Host.Sockets.Tried.size(), 1U);
  EXPECT_TRUE(Contains(Brelwin.Controls().Spots.lblSources.Caption.Get(), "Reverse Beacon Network: off"));
}

TEST_F(StreamStory, QuittingWhileTheConnectionIsAwaitedEndsAtOnce) {
  Host.Sockets.Peer(ScriptedPeer());
  const auto begin = Host.Time.Now();
  Host.Queue.OnYield = [&] {
    if (!Host.Sockets.Tried.empty()) Brelwin.Quit();
  };
  Brelwin.Start({}, {});
  EXPECT_TRUE(Host.Queue.HasQuit);
  EXPECT_LT(Host.Time.Now() - begin, seconds(2));
  EXPECT_TRUE(Host.EventLog().ends_with("Form_Unload End\r\n"));
}

TEST_F(StreamStory, ABoxClickedDuringTheStartStaysAsItWas) {
  Host.Sockets.Peer(LoggingIn().Sends(HeardLine, seconds(12)));
  Host.Queue.OnYield = [&] {
    if (Host.Sockets.Tried.empty()) return;
    Host.Queue.OnYield = nullptr;
    auto& box = Brelwin.Controls().RBN.chkReverseBeaconSpotsEnabled;
    box.Value = false;
    box.Click();
  };
  Brelwin.Start({}, {});
  Host.Queue.RunFor(seconds(40));
  EXPECT_TRUE(Brelwin.Controls().RBN.chkReverseBeaconSpotsEnabled.Value);
  EXPECT_TRUE(Contains(List().Text.Get(), "G4ABC"));
}

TEST_F(StreamStory, AnOutageIsToldFromItsBeginAndWithTheNextAttempt) {
  Host.Sockets.Peer(ScriptedPeer().Refuses());
  const auto status = [this] { return Brelwin.Controls().RBN.lblRBNStatus.Caption.Get(); };
  Brelwin.Start({}, {});
  EXPECT_TRUE(
      status().ends_with("no connection since 12:00:00 (Connection refused), next attempt at 12:00:10"))
      << status();
  Host.Queue.RunFor(seconds(25));
  EXPECT_TRUE(
      status().ends_with("no connection since 12:00:00 (Connection refused), next attempt at 12:00:30"))
      << status();
}

TEST_F(StreamStory, SwitchingTheStreamOnNeedsACallsign) {
  Settings("RBNSpotsEnabled=0\r\n");
  Brelwin.Start({}, {});
  auto& tab = Brelwin.Controls().RBN;
  tab.txtRBNCallsign.Text = std::string("  ");
  tab.chkReverseBeaconSpotsEnabled.Value = true;
  tab.chkReverseBeaconSpotsEnabled.Click();
  EXPECT_FALSE(tab.chkReverseBeaconSpotsEnabled.Value);
  ASSERT_EQ(Host.Dialogs.Shown.size(), 1U);
  EXPECT_TRUE(
      Host.Dialogs.Shown[0].Text.starts_with("You must first enter your Reverse Beacon Network Login"));
}

}  // namespace
}  // namespace brelwin
