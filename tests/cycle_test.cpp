// Stories of the whole program on the test host: what a user sees, hears and finds in the files.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "cycle/command_line.h"
#include "cycle/handlers.h"
#include "cycle/main_window.h"
#include "cycle/program.h"
#include "cycle/start_up.h"
#include "feed_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using test::FeedItem;
using test::FeedText;
using test::ScriptedAnswer;

constexpr auto FeedAddress = "http://feed.test/rss";

const FeedItem Oldest{"G4ABC/P on G/LD-001 @ 7.032 CW", "24 Nov 2026 11:40:00"};
const FeedItem Middle{"DL1XYZ on DM/BW-042 @ 14.285 SSB", "24 Nov 2026 11:50:00"};
const FeedItem Newest{"W6ABC on W6/CT-001 @ 10.118 CW", "24 Nov 2026 12:00:30"};

class Story : public ::testing::Test {
 protected:
  Story() {
    Settings(
        "SecondsBetweenChecks=30\r\nMaximumSpotsInList=200\r\nSotawatchSpotsViaRSS=1\r\nPlaySoundWhen=6\r\n"
        "AlertSound=chimes.wav\r\n");
    Host.Disk.Put("/brelwin/chimes.wav", "RIFF");
    Host.Internet.AnswerAlways(FeedAddress, FeedText({Middle, Oldest}));
  }

  void Settings(const std::string& general) {
    Host.Disk.Put("/brelwin/Brelwin.INI", "[General]\r\n" + general +
                                              "[URLTemplates]\r\nSotawatchRSS=http://feed.test/rss\r\n"
                                              "Twitter=http://twitter.test/search?since_id=ZZZZ\r\n");
  }

  void Start(std::string_view commandLine = {}) { Brelwin.Start(commandLine, {}); }

  // The stations of the list's lines, top first.
  std::vector<std::string> Stations() {
    std::vector<std::string> stations;
    for (const auto line : SplitLines(List().Text.Get())) stations.emplace_back(Trim(line.substr(7, 12)));
    return stations;
  }

  Screen& Window() { return Brelwin.Controls(); }
  SpotListBox& List() { return Window().Spots.txtSPOTList; }
  std::size_t Reads() const { return Host.Internet.Queries.size(); }

  test::TestHost Host;
  Program Brelwin{Host.World};
};

using Names = std::vector<std::string>;

TEST_F(Story, ANewSpotAppearsOnTopIsLoggedAndSounded) {
  Settings(
      "SecondsBetweenChecks=30\r\nSotawatchSpotsViaRSS=1\r\nPlaySoundWhen=6\r\nAlertSound=chimes.wav\r\n"
      "EnableLogging1=1\r\nLogFile1=spots.txt\r\nLogFormat1=1\r\n");
  Start();
  EXPECT_EQ(Stations(), (Names{"DL1XYZ", "G4ABC/P"}));
  EXPECT_TRUE(Host.Sound.Played.empty()) << "the first load is silent unless the user asks for it";

  Host.Internet.AnswerAlways(FeedAddress, FeedText({Newest, Middle, Oldest}));
  Host.Queue.RunFor(seconds(31));
  EXPECT_EQ(Stations(), (Names{"W6ABC", "DL1XYZ", "G4ABC/P"}));
  EXPECT_EQ(List().Spots.size(), 3U);
  EXPECT_EQ(Host.Sound.Played.size(), 1U);
  Host.Queue.RunFor(minutes(10));
  const auto log = SplitLines(Host.Disk.Text("/brelwin/spots.txt"));
  ASSERT_EQ(log.size(), 3U) << "each spot once, however often the feed repeats it";
  EXPECT_TRUE(Contains(Host.Disk.Text("/brelwin/spots.txt"), "12:00,W6ABC,W6/CT-001,"));
  EXPECT_EQ(Host.Sound.Played.size(), 1U);
}

TEST_F(Story, TheIntervalIsThePauseBetweenChecks) {
  const struct {
    std::string Text;
    int ReadsInTwoMinutes;
  } cases[] = {{"64", 1}, {"65", 24}, {"0", 24}, {"1", 118}};
  for (const auto& c : cases) {
    test::TestHost host;
    host.Disk.Put("/brelwin/Brelwin.INI",
                  "[General]\r\nSotawatchSpotsViaRSS=1\r\nSecondsBetweenChecks=" + c.Text +
                      "\r\n[URLTemplates]\r\nSotawatchRSS=http://feed.test/rss\r\n");
    host.Internet.AnswerAlways(FeedAddress, FeedText({Oldest}));
    Program program(host.World);
    program.Start({}, {});
    const auto before = host.Internet.Queries.size();
    host.Queue.RunFor(minutes(2));
    EXPECT_NEAR(static_cast<double>(host.Internet.Queries.size() - before), c.ReadsInTwoMinutes, 1.0)
        << c.Text;
  }
}

TEST_F(Story, TheStartupDelayCountsDownAndThenConnects) {
  Start("delay=10");
  EXPECT_EQ(List().Text.Get(), "Internet connections will be initialized in 10 seconds...");
  EXPECT_FALSE(Window().Spots.cmdReloadSpotList.Enabled);
  Host.Queue.RunFor(Milliseconds(3200));
  EXPECT_EQ(List().Text.Get(), "Internet connections will be initialized in 7 seconds...");
  Host.Queue.RunFor(Milliseconds(6700));
  EXPECT_EQ(Reads(), 0U);
  Host.Queue.RunFor(seconds(1));
  EXPECT_EQ(Stations().size(), 2U);
  EXPECT_TRUE(Window().Spots.cmdReloadSpotList.Enabled);
  Host.Queue.RunFor(seconds(31));
  EXPECT_EQ(Reads(), 2U) << "the countdown's short interval must not go on";
}

TEST_F(Story, AWallClockThatStepsBackDoesNotHangTheDelay) {
  Start("5");
  Host.Time.SetLocalTime(AddMinutes(Host.Time.LocalNow(), -60));
  Host.Queue.RunFor(seconds(6));
  EXPECT_EQ(Stations().size(), 2U);
}

TEST(CommandLine, KnowsTheDelayAndNothingElse) {
  const struct {
    std::string_view Text;
    float Seconds;
  } cases[] = {{"", 0},       {"delay=15", 15}, {" DELAY= 2.5 ", 2.5F}, {"15", 15},
               {"DELAY=", 0}, {"DELAY=abc", 0}, {"-console", 0},        {"DELAY=1e39", 0}};
  for (const auto& c : cases) EXPECT_EQ(ReadStartupDelay(c.Text, {}), c.Seconds) << c.Text;
}

TEST_F(Story, AnUnreachableFeedIsSaidOnceAndItsReturnToo) {
  Host.Internet.Forget(FeedAddress);
  Start();
  EXPECT_EQ(List().Text.Get(), "") << "what stood there before the first read says nothing true any more";
  EXPECT_FALSE(Window().Spots.picDownload.Visible);
  Host.Queue.RunFor(minutes(3));
  const auto linesWhileAway = SplitLines(Host.EventLog()).size();
  EXPECT_FALSE(Window().Spots.lblStatus.Caption.Get().empty());
  Host.Internet.AnswerAlways(FeedAddress, FeedText({Middle, Oldest}));
  Host.Queue.RunFor(minutes(3));
  EXPECT_EQ(Stations(), (Names{"DL1XYZ", "G4ABC/P"}));
  EXPECT_EQ(SplitLines(Host.EventLog()).size(), linesWhileAway + 1);
}

TEST_F(Story, AReloadThatFailsLeavesTheListAndOneThatWorksReplacesIt) {
  Start();
  Host.Internet.AnswerAlways(FeedAddress, "");
  Window().Spots.cmdReloadSpotList.Click();
  EXPECT_EQ(Stations().size(), 2U);
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(Stations().size(), 2U);
  Host.Internet.AnswerAlways(FeedAddress, FeedText({Newest}));
  Window().Spots.cmdReloadSpotList.Click();
  EXPECT_EQ(Stations(), Names{"W6ABC"});
}

TEST_F(Story, AnErrorInTheFirstLoadIsToldAndTheChecksBegin) {
  Host.Queue.OnYield = [&] {
    if (Reads() == 0 || !List().Text.Get().empty()) return;
    Host.Queue.OnYield = {};
    throw std::out_of_range("no such spot");
  };
  Start();
  EXPECT_EQ(List().Text.Get(), "FormLoad error 9: no such spot");
  EXPECT_TRUE(Contains(Host.EventLog(), "FormLoad Error, Number=9 Error=no such spot"));
  EXPECT_FALSE(Window().Spots.picDownload.Visible);
  Host.Internet.AnswerAlways(FeedAddress, FeedText({Newest, Middle, Oldest}));
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(Stations().front(), "W6ABC");
}

// The window lives while the feed is digested, but nothing else may begin, and quitting leaves the rest.
TEST_F(Story, QuittingWhileAVeryLongFeedIsDigestedDoesNotWaitForItsEnd) {
  std::vector<FeedItem> items(5000, Oldest);
  for (std::size_t index = 0; index < items.size(); ++index)
    items[index].Title =
        "G" + std::to_string(index % 10) + "ABC on G/LD-001 @ 7.0" + std::to_string(index % 90 + 10) + " CW";
  Host.Internet.AnswerAlways(FeedAddress, FeedText(items));
  int yieldsWithAFeed = 0;
  Host.Queue.OnYield = [&] {
    if (!Host.Disk.Exists("/brelwin/SotawatchSpotsRSS.txt")) return;
    EXPECT_TRUE(Host.World.FetchInProgress);
    if (++yieldsWithAFeed == 2) Brelwin.Quit();
  };
  Start();
  EXPECT_TRUE(Host.Queue.HasQuit);
  EXPECT_EQ(yieldsWithAFeed, 2);
  EXPECT_TRUE(Host.EventLog().ends_with("Form_Unload End\r\n")) << Host.EventLog();
}

TEST_F(Story, QuittingEndsEveryWaitAndUnloadsWhenAllHasReturned) {
  Host.Internet.Forget(FeedAddress);
  Host.Internet.Answer(FeedAddress, ScriptedAnswer{.Body = "never", .Delay = minutes(10)});
  int yields = 0;
  Host.Queue.OnYield = [&] {
    if (++yields == 5) Brelwin.Quit();
  };
  const auto begin = Host.Time.Now();
  Start();
  EXPECT_LT(Host.Time.Now() - begin, seconds(2));
  EXPECT_TRUE(Host.Queue.HasQuit);
  const auto log = Host.EventLog();
  EXPECT_TRUE(log.ends_with("Form_Unload End\r\n")) << log;
  EXPECT_TRUE(Contains(log, ": Form_QueryUnload\r\n"));
  EXPECT_FALSE(Window().tmrCheckSpots.Enabled);
}

TEST_F(Story, WhoQuitsBeforeTheStartIsNotStarted) {
  const auto settings = Host.Disk.Text("/brelwin/Brelwin.INI");
  Brelwin.Quit();
  Start();
  const auto log = Host.EventLog();
  EXPECT_TRUE(log.ends_with("Form_Unload End\r\n")) << log;
  EXPECT_FALSE(Contains(log, "launching")) << log;
  EXPECT_FALSE(Contains(log, "not written")) << log;
  EXPECT_EQ(Host.Disk.Text("/brelwin/Brelwin.INI"), settings);
}

TEST_F(Story, QuittingDuringAReadBeginsNothingElseAndLeavesTheReportsAlone) {
  Settings(
      "SecondsBetweenChecks=30\r\nSotawatchSpotsViaRSS=1\r\nReverseBeaconSpotsEnabled=1\r\n"
      "RBNCallsign=Q0ZZ\r\nSOTAAlertsRefreshInterval=5\r\nRBNHost=skimmers.test\r\n");
  Host.Disk.Put("/brelwin/SOTAAlerts.txt", "the last report");
  Host.Internet.Answer(FeedAddress, ScriptedAnswer{.Body = "never", .Delay = minutes(10)});
  Host.Queue.OnYield = [&] {
    if (Host.World.FetchInProgress) Brelwin.Quit();
  };
  Start();
  EXPECT_TRUE(Host.Queue.HasQuit);
  EXPECT_EQ(Reads(), 1U);
  EXPECT_EQ(Host.Disk.Text("/brelwin/SOTAAlerts.txt"), "the last report");
  EXPECT_FALSE(Contains(Host.EventLog(), "OpenRBNConnection")) << Host.EventLog();
}

TEST_F(Story, SwitchingTheFeedDuringATwitterReadForgetsWhatItWouldHaveLeft) {
  Settings("SotawatchSpotsViaRSS=0\r\nSecondsBetweenChecks=30\r\n");
  Start();
  Host.Queue.OnYield = [&] {
    if (!Host.World.FetchInProgress || Window().Spots.chkSOTAWatchSpotsViaRSS.Value) return;
    Window().Spots.chkSOTAWatchSpotsViaRSS.Value = true;
    Window().Spots.chkSOTAWatchSpotsViaRSS.Click();
  };
  Host.Internet.Answer("http://twitter.test/search?since_id=",
                       ScriptedAnswer{.Status = 0, .Delay = seconds(3)});
  Host.Queue.RunFor(minutes(2));
  EXPECT_EQ(Stations().size(), 2U);
  EXPECT_FALSE(Window().Spots.lblNoConnectionToTwitter.Visible);
}

TEST_F(Story, TheFirstLoadKeepsNoMoreRecentSpotsThanAnyOtherCheck) {
  Settings("SecondsBetweenChecks=30\r\nSotawatchSpotsViaRSS=1\r\nMaximumSpotsInList=0\r\n");
  std::vector<FeedItem> items;
  for (int number = 0; number < 300; ++number)
    items.push_back({"G" + std::to_string(number % 10) + "AB" + static_cast<char>('A' + number / 10 % 26) +
                         static_cast<char>('A' + number / 260) + " on G/LD-001 @ 7.032 CW",
                     "24 Nov 2026 11:40:00"});
  Host.Internet.AnswerAlways(FeedAddress, FeedText(items));
  MainWindow window(Host.World);
  Form_Load(window, {}, {});
  EXPECT_EQ(window.SpotList.Count(), 300U);
  EXPECT_EQ(window.RecentSotawatchSpots.Count(), 200U);
}

TEST_F(Story, QuittingAtAnyYieldEndsTheProgramOnceAndKeepsTheSettings) {
  for (int quitAt = 1; quitAt < 40; ++quitAt) {
    test::TestHost host;
    host.Disk.Put("/brelwin/Brelwin.INI", Host.Disk.Text("/brelwin/Brelwin.INI"));
    host.Internet.AnswerAlways(FeedAddress, FeedText({Middle, Oldest}));
    Program program(host.World);
    int yields = 0;
    host.Queue.OnYield = [&] {
      if (++yields == quitAt) program.Quit();
    };
    program.Start({}, {});
    host.Queue.RunFor(minutes(2));
    if (yields < quitAt) program.Quit();
    EXPECT_TRUE(host.Queue.HasQuit) << quitAt;
    const auto log = host.EventLog();
    EXPECT_TRUE(log.ends_with("Form_Unload End\r\n")) << quitAt;
    EXPECT_EQ(log.find("Form_Unload End"), log.rfind("Form_Unload End")) << quitAt;
    EXPECT_TRUE(Contains(host.Disk.Text("/brelwin/Brelwin.INI"), "SecondsBetweenChecks=30")) << quitAt;
  }
}

TEST_F(Story, InputThatWouldStartWorkIsDroppedWhileAPageIsRead) {
  Start();
  Host.Internet.Answer(FeedAddress,
                       ScriptedAnswer{.Body = FeedText({Newest, Middle, Oldest}), .Delay = seconds(5)});
  bool clicked = false;
  Host.Queue.OnYield = [&] {
    if (!Host.World.FetchInProgress || clicked) return;
    clicked = true;
    Window().Spots.cmdGetSPOTS.Click();
    Window().Spots.cmdReloadSpotList.Click();
  };
  Host.Queue.RunFor(seconds(40));
  EXPECT_TRUE(clicked);
  EXPECT_EQ(Reads(), 2U);
  Host.Queue.OnYield = {};
  Window().Spots.cmdGetSPOTS.Click();
  EXPECT_EQ(Reads(), 3U);
}

TEST_F(Story, TheTwitterFeedAsksForNewerSpotsOnlyAndShowsItsConnection) {
  Settings("SotawatchSpotsViaRSS=0\r\nSecondsBetweenChecks=30\r\n");
  Host.Internet.AnswerAlways("http://twitter.test/search?since_id=",
                             R"x({"results":[{"id_str":"42","created_at":"Tue, 24 Nov 2026 11:58:00 +0000",)x"
                             R"x("text":"G4ABC/P on G/LD-001 @ 7.032 CW loud (Posted by G4XYZ)"}]})x");
  Start();
  EXPECT_EQ(Stations(), Names{"G4ABC/P"});
  Host.Queue.RunFor(minutes(1));
  EXPECT_TRUE(Window().Spots.lblNoConnectionToTwitter.Visible);
  EXPECT_EQ(Host.Internet.Queries.back().Url, "http://twitter.test/search?since_id=42");
  Window().Spots.chkSOTAWatchSpotsViaRSS.Value = true;
  Window().Spots.chkSOTAWatchSpotsViaRSS.Click();
  EXPECT_FALSE(Window().Spots.lblNoConnectionToTwitter.Visible);
}

TEST_F(Story, TheSettingsBoxesComplainAndTakeEffectAtOnce) {
  Start();
  auto& box = Window().Spots.txtSecondsBetweenChecks;
  for (const auto* refused : {"2", "61", "abc"}) {
    box.Text = std::string(refused);
    box.LostFocus();
    EXPECT_EQ(box.Text.Get(), "30");
  }
  ASSERT_EQ(Host.Dialogs.Shown.size(), 3U);
  EXPECT_EQ(Host.Dialogs.Shown[0].Text, "The Seconds Between Checks for New Spots must be between 3 and 60");
  EXPECT_EQ(Host.Dialogs.Shown[0].Title, "Settings");
  Host.Queue.RunFor(seconds(20));
  box.Text = std::string("60");
  box.LostFocus();
  const auto before = Reads();
  Host.Queue.RunFor(seconds(59));
  EXPECT_EQ(Reads(), before);
  Host.Queue.RunFor(seconds(2));
  EXPECT_EQ(Reads(), before + 1);

  Window().Spots.txtMaximumSpotsInList.Text = std::string("1");
  Window().Spots.txtMaximumSpotsInList.LostFocus();
  EXPECT_EQ(Stations(), Names{"DL1XYZ"});
}

TEST_F(Story, AFullOrReadOnlyDiskStillShowsAndSounds) {
  Host.Disk.ReadOnly = true;
  Start();
  EXPECT_EQ(Stations().size(), 2U);
  Host.Internet.AnswerAlways(FeedAddress, FeedText({Newest, Middle, Oldest}));
  Host.Queue.RunFor(minutes(1));
  EXPECT_EQ(Stations().size(), 3U);
  EXPECT_EQ(Host.Sound.Played.size(), 1U);
  Brelwin.Quit();
  EXPECT_TRUE(Host.Queue.HasQuit);
}

TEST_F(Story, AWeekOfChecksRepeatsAndLosesNothing) {
  Settings("SecondsBetweenChecks=64\r\nSotawatchSpotsViaRSS=1\r\n");
  Start();
  std::vector<FeedItem> items{Middle, Oldest};
  for (int day = 0; day < 7; ++day) {
    const auto now = CalendarFromDateTime(Host.Time.LocalNow());
    const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    items.insert(items.begin(), FeedItem{"G4ABC/P on G/LD-001 @ 7.032 CW",
                                         two(now.Day) + " " + (now.Month == 11 ? "Nov" : "Dec") + " 2026 " +
                                             two(now.Hour) + ":" + two(now.Minute) + ":" + two(now.Second)});
    Host.Internet.AnswerAlways(FeedAddress, FeedText(items));
    Host.Queue.RunFor(std::chrono::hours(24));
  }
  EXPECT_EQ(Stations().size(), 9U);
  EXPECT_EQ(List().Spots.size(), 9U);
}

}  // namespace
}  // namespace brelwin
