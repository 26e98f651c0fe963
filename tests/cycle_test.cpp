// Stories of the whole program on the test host: what a user sees, hears and finds in the files.
#include <gtest/gtest.h>

#include "base/text.h"
#include "cycle/main_window.h"
#include "cycle/start_up.h"
#include "program_story.h"

namespace brelwin {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using test::FeedAddress;
using test::FeedItemText;
using test::FeedText;
using test::ProgramStory;
using test::PubDate;
using test::ScriptedAnswer;

const auto Oldest = FeedItemText("G4ABC/P on G/LD-001 @ 7.032 CW", PubDate("11:40:00"));
const auto Middle = FeedItemText("DL1XYZ on DM/BW-042 @ 14.285 SSB", PubDate("11:50:00"));
const auto Newest = FeedItemText("W6ABC on W6/CT-001 @ 10.118 CW", PubDate("12:00:30"));

class Story : public ::testing::Test, protected ProgramStory {
 protected:
  Story() {
    Settings(
        "SecondsBetweenChecks=30\r\nMaximumSpotsInList=200\r\nPlaySoundWhen=6\r\nAlertSound=chimes.wav\r\n");
    Disk.Put("/brelwin/chimes.wav", "RIFF");
    Internet.AnswerAlways(FeedAddress, FeedText({Middle, Oldest}));
  }

  void Start(std::string_view commandLine = {}) { Brelwin.Start(commandLine, {}); }

  // The stations of the list's lines, top first.
  std::vector<std::string> Stations() {
    std::vector<std::string> stations;
    const auto text = ListText();
    for (const auto line : SplitLines(text)) stations.emplace_back(Trim(line.substr(7, 12)));
    return stations;
  }

  std::size_t Reads() const { return Internet.Queries.size(); }
};

using Names = std::vector<std::string>;

TEST_F(Story, ANewSpotAppearsOnTopIsLoggedAndSounded) {
  Settings(
      "SecondsBetweenChecks=30\r\nPlaySoundWhen=6\r\nAlertSound=chimes.wav\r\n"
      "EnableLogging1=1\r\nLogFile1=spots.txt\r\nLogFormat1=1\r\n");
  Start();
  EXPECT_EQ(Stations(), (Names{"DL1XYZ", "G4ABC/P"}));
  EXPECT_TRUE(Sound.Played.empty()) << "the first load is silent unless the user asks for it";
  EXPECT_TRUE(Contains(EventLog(), " launching, UTC Date/Time=Nov 24 2026 12:00:00\r\n"));

  Internet.AnswerAlways(FeedAddress, FeedText({Newest, Middle, Oldest}));
  Queue.RunFor(seconds(31));
  EXPECT_EQ(Stations(), (Names{"W6ABC", "DL1XYZ", "G4ABC/P"}));
  EXPECT_EQ(ListedSpots().size(), 3U);
  EXPECT_EQ(Sound.Played.size(), 1U);
  Queue.RunFor(minutes(10));
  const auto log = SplitLines(Disk.Text("/brelwin/spots.txt"));
  ASSERT_EQ(log.size(), 3U) << "each spot once, however often the feed repeats it";
  EXPECT_TRUE(Contains(Disk.Text("/brelwin/spots.txt"), "12:00,W6ABC,W6/CT-001,"));
  List().DoubleClick(*ListedSpots().at(0));
  ASSERT_EQ(Shell.Opened.size(), 1U);
  EXPECT_TRUE(Contains(Shell.Opened[0], "W6%2FCT%2D001")) << Shell.Opened[0];
  EXPECT_EQ(Sound.Played.size(), 1U);
}

TEST_F(Story, TheIntervalIsThePauseBetweenChecks) {
  const struct {
    std::string Text;
    int ReadsInTwoMinutes;
  } cases[] = {{"64", 1}, {"65", 24}, {"0", 24}, {"1", 118}};
  for (const auto& c : cases) {
    ProgramStory story;
    story.Settings("SecondsBetweenChecks=" + c.Text + "\r\n");
    story.Brelwin.Start({}, {});
    const auto before = story.Internet.Queries.size();
    story.Queue.RunFor(minutes(2));
    EXPECT_NEAR(static_cast<double>(story.Internet.Queries.size() - before), c.ReadsInTwoMinutes, 1.0)
        << c.Text;
  }
}

TEST_F(Story, TheStartupDelayCountsDownAndThenConnects) {
  Start("delay=10");
  EXPECT_EQ(ListText(), "Internet connections will be initialized in 10 seconds...");
  EXPECT_FALSE(Window().Spots.cmdReloadSpotList.Enabled);
  Queue.RunFor(Milliseconds(3200));
  EXPECT_EQ(ListText(), "Internet connections will be initialized in 7 seconds...");
  Queue.RunFor(Milliseconds(6700));
  EXPECT_EQ(Reads(), 0U);
  Queue.RunFor(seconds(1));
  EXPECT_EQ(Stations().size(), 2U);
  EXPECT_TRUE(Window().Spots.cmdReloadSpotList.Enabled);
  Queue.RunFor(seconds(31));
  EXPECT_EQ(Reads(), 2U) << "the countdown's short interval must not go on";
}

TEST_F(Story, AWallClockThatStepsBackDoesNotHangTheDelay) {
  Start("5");
  Time.SetLocalTime(AddMinutes(Time.LocalNow(), -60));
  Queue.RunFor(seconds(6));
  EXPECT_EQ(Stations().size(), 2U);
}

TEST(CommandLine, KnowsTheDelayAndNothingElse) {
  const struct {
    std::string_view Text;
    float Seconds;
  } cases[] = {{"", 0},       {"delay=15", 15}, {" DELAY= 2.5 ", 2.5F}, {"15", 15},
               {"DELAY=", 0}, {"DELAY=abc", 0}, {"-console", 0},        {"DELAY=1e39", 0}};
  for (const auto& c : cases) EXPECT_EQ(ReadStartupDelay(c.Text), c.Seconds) << c.Text;
}

TEST_F(Story, AnUnreachableFeedIsSaidOnceAndItsReturnToo) {
  Internet.Forget(FeedAddress);
  Start();
  EXPECT_EQ(ListText(), "") << "what stood there before the first read says nothing true any more";
  EXPECT_FALSE(Window().Spots.picDownload.Visible);
  const auto linesWhileAway = SplitLines(EventLog()).size();
  Queue.RunFor(minutes(3));
  EXPECT_EQ(SplitLines(EventLog()).size(), linesWhileAway);
  EXPECT_FALSE(Window().Spots.lblStatus.Caption.Get().empty());
  Internet.AnswerAlways(FeedAddress, FeedText({Middle, Oldest}));
  Queue.RunFor(minutes(3));
  EXPECT_EQ(Stations(), (Names{"DL1XYZ", "G4ABC/P"}));
  EXPECT_EQ(SplitLines(EventLog()).size(), linesWhileAway + 1);
  EXPECT_TRUE(Sound.Played.empty()) << "the first read that brings spots is the start";
  const auto all = FeedText({Newest, Middle, Oldest});
  Internet.AnswerAlways(FeedAddress, all.substr(0, all.rfind("</channel>")));
  Queue.RunFor(seconds(31));
  EXPECT_EQ(Sound.Played.size(), 1U);
}

TEST_F(Story, AnEmptyListSaysWhy) {
  Settings("SecondsBetweenChecks=30\r\nFilterSpotDisplay=1\r\nFilterPoints=8\r\nFilterStation=G*\r\n");
  Start();
  auto& hidden = Window().Spots.lblSpotsHidden;
  EXPECT_TRUE(hidden.Visible);
  EXPECT_EQ(hidden.Caption.Get(), "1 spot hidden: its points are not known") << "the station hides the other";
  Internet.AnswerAlways(
      FeedAddress,
      FeedText({FeedItemText("G4NEW on G/LD-001 @ 7.03 CW", PubDate("12:00:20")), Middle, Oldest}));
  Queue.RunFor(seconds(31));
  EXPECT_EQ(hidden.Caption.Get(), "2 spots hidden: their points are not known");
  Window().Filters.txtFilterPoints.Text = "";
  Queue.RunFor(seconds(31));
  EXPECT_FALSE(hidden.Visible);

  const auto old = FeedItemText("G4OLD on G/LD-001 @ 7.03 CW", "Mon, 23 Nov 2026 05:30:00 GMT");
  Internet.AnswerAlways(FeedAddress, FeedText({old, Newest}));
  Queue.RunFor(seconds(31));
  const std::string age = "the feed's newest spot, on its top, is 30 hours old";
  EXPECT_EQ(Window().Spots.lblStatus.Caption.Get(), "Connected to Sotawatch; " + age);
  EXPECT_TRUE(Contains(Window().Spots.lblSources.Caption.Get(), " spots; " + age + " | "));
}

TEST_F(Story, AReloadThatFailsLeavesTheListAndOneThatWorksReplacesIt) {
  Start();
  Internet.AnswerAlways(FeedAddress, "");
  Window().Spots.cmdReloadSpotList.Click();
  EXPECT_EQ(Stations().size(), 2U);
  Queue.RunFor(minutes(1));
  EXPECT_EQ(Stations().size(), 2U);
  Internet.AnswerAlways(FeedAddress, FeedText({Newest}));
  Window().Spots.cmdReloadSpotList.Click();
  EXPECT_EQ(Stations(), Names{"W6ABC"});
}

TEST_F(Story, AnErrorInTheFirstLoadIsToldAndTheChecksBegin) {
  Queue.OnYield = [&] {
    if (Reads() == 0 || !ListText().empty()) return;
    Queue.OnYield = {};
    throw std::out_of_range("no such spot");
  };
  Start();
  EXPECT_EQ(ListText(), "FormLoad error 9: no such spot");
  EXPECT_TRUE(Contains(EventLog(), "FormLoad Error, Number=9 Error=no such spot"));
  EXPECT_FALSE(Window().Spots.picDownload.Visible);
  Internet.AnswerAlways(FeedAddress, FeedText({Newest, Middle, Oldest}));
  Queue.RunFor(minutes(1));
  EXPECT_EQ(Stations().front(), "W6ABC");
}

// The window lives while the feed is digested, but nothing else may begin, and quitting leaves the rest.
TEST_F(Story, QuittingWhileAVeryLongFeedIsDigestedDoesNotWaitForItsEnd) {
  std::vector<std::string> items;
  for (int index = 0; index < 5000; ++index)
    items.push_back(FeedItemText(
        "G" + std::to_string(index % 10) + "ABC on G/LD-001 @ 7.0" + std::to_string(index % 90 + 10) + " CW",
        PubDate("11:40:00")));
  Internet.AnswerAlways(FeedAddress, FeedText(items));
  int yieldsWithAFeed = 0;
  Queue.OnYield = [&] {
    if (!Disk.Exists("/brelwin/SotawatchSpotsRSS.txt")) return;
    EXPECT_TRUE(World.Going.Includes(Activity::FetchInProgress));
    if (++yieldsWithAFeed == 2) Brelwin.Quit();
  };
  Start();
  EXPECT_TRUE(Queue.HasQuit);
  EXPECT_EQ(yieldsWithAFeed, 2);
  EXPECT_TRUE(EventLog().ends_with("Form_Unload End\r\n")) << EventLog();
}

TEST_F(Story, WhoQuitsBeforeTheStartIsNotStarted) {
  const auto settings = Disk.Text("/brelwin/Brelwin.INI");
  Brelwin.Quit();
  Start();
  const auto log = EventLog();
  EXPECT_TRUE(log.ends_with("Form_Unload End\r\n")) << log;
  EXPECT_FALSE(Contains(log, "launching")) << log;
  EXPECT_FALSE(Contains(log, "not written")) << log;
  EXPECT_EQ(Disk.Text("/brelwin/Brelwin.INI"), settings);
}

TEST_F(Story, SwitchingTheFeedDuringATwitterReadForgetsWhatItWouldHaveLeft) {
  Settings("SotawatchSpotsViaRSS=0\r\nSecondsBetweenChecks=30\r\n");
  Internet.AnswerAlways("http://twitter.test/search?since_id=", R"({"results":[]})");
  Start();
  EXPECT_FALSE(Window().Spots.lblNoConnectionToTwitter.Visible);
  Internet.Forget("http://twitter.test/search?since_id=");
  Queue.RunFor(seconds(31));
  EXPECT_TRUE(Window().Spots.lblNoConnectionToTwitter.Visible);
  Queue.OnYield = [&] {
    if (!World.Going.Includes(Activity::FetchInProgress) || Window().Spots.chkSOTAWatchSpotsViaRSS.Value)
      return;
    Window().Spots.chkSOTAWatchSpotsViaRSS.Value = true;
    Window().Spots.chkSOTAWatchSpotsViaRSS.Click();
  };
  Internet.Answer("http://twitter.test/search?since_id=", ScriptedAnswer{.Status = 0, .Delay = seconds(3)});
  Queue.RunFor(minutes(2));
  EXPECT_EQ(Stations().size(), 2U);
  EXPECT_FALSE(Window().Spots.lblNoConnectionToTwitter.Visible);
}

TEST_F(Story, InputThatWouldStartWorkIsDroppedWhileAPageIsRead) {
  Start();
  Internet.Answer(FeedAddress,
                  ScriptedAnswer{.Body = FeedText({Newest, Middle, Oldest}), .Delay = seconds(5)});
  bool clicked = false;
  Queue.OnYield = [&] {
    if (!World.Going.Includes(Activity::FetchInProgress) || clicked) return;
    clicked = true;
    Window().Spots.cmdGetSPOTS.Click();
    Window().Spots.cmdReloadSpotList.Click();
  };
  Queue.RunFor(seconds(40));
  EXPECT_TRUE(clicked);
  EXPECT_EQ(Reads(), 2U);
  Queue.OnYield = {};
  Window().Spots.cmdGetSPOTS.Click();
  EXPECT_EQ(Reads(), 3U);
}

// The page drips for a minute and a half, with the stream, which wants it, and without, where a command does.
TEST_F(Story, TheListNeverWaitsForTheAlertsPage) {
  for (const std::string stream : {"0", "1"}) {
    ProgramStory story;
    story.Settings("SecondsBetweenChecks=5\r\n", "RBNSpotsEnabled=" + stream + "\r\n");
    story.Sockets.Peer(ProgramStory::LoggingIn());
    const auto page = test::Heading() + test::Table({.Time = "12:10"});
    story.Internet.Answer(test::AlertsAddress, ScriptedAnswer{.Body = "", .Delay = seconds(20)});
    story.Internet.Answer(
        test::AlertsAddress,
        ScriptedAnswer{.Body = page, .BetweenPieces = seconds(1), .PieceSize = page.size() / 90 + 1});
    story.Internet.AnswerAlways(
        FeedAddress,
        FeedText({FeedItemText("G4ABC on G/LD-003 @ 7.032 CW", PubDate("11:59:00"), "Posted by G4ABC")}));
    bool clicked = false;
    const auto click = story.Queue.CallAfter(seconds(8), [&] {
      const auto reads = story.ReadsOf(FeedAddress);
      story.Window().Spots.cmdGetSPOTS.Click();
      clicked = story.ReadsOf(FeedAddress) == reads + 1;
    });
    story.Brelwin.Start({}, {});
    story.Queue.RunFor(minutes(8));
    EXPECT_TRUE(clicked) << stream;
    EXPECT_GT(story.ReadsOf(FeedAddress), 70U) << stream << ": checks go on";
    const auto log = story.EventLog();
    EXPECT_EQ(Split(log, "Self-spot of G4ABC received").size(), 2U) << log;
    EXPECT_EQ(Split(log, "Adding alert:").size(), 2U) << log;
    EXPECT_LT(log.find("waits until the alerts have been read"), log.find("Adding alert:"));
    EXPECT_LE(story.ReadsOf(test::AlertsAddress), stream == "0" ? 2U : 3U) << "at the pace of the interval";
  }
}

TEST_F(Story, TheSettingsBoxesComplainAndTakeEffectAtOnce) {
  Start();
  auto& box = Window().Spots.txtSecondsBetweenChecks;
  for (const auto* refused : {"2", "61", "abc"}) {
    box.Text = std::string(refused);
    box.LostFocus();
    EXPECT_EQ(box.Text.Get(), "30");
  }
  ASSERT_EQ(Dialogs.Shown.size(), 3U);
  EXPECT_EQ(Dialogs.Shown[0].Text, "The Seconds Between Checks for New Spots must be between 3 and 60");
  EXPECT_EQ(Dialogs.Shown[0].Title, "Settings");
  Queue.RunFor(seconds(20));
  box.Text = std::string("60");
  box.LostFocus();
  const auto before = Reads();
  Queue.RunFor(seconds(59));
  EXPECT_EQ(Reads(), before);
  Queue.RunFor(seconds(2));
  EXPECT_EQ(Reads(), before + 1);

  Window().Spots.txtMaximumSpotsInList.Text = std::string("1");
  Window().Spots.txtMaximumSpotsInList.LostFocus();
  EXPECT_EQ(Stations(), Names{"DL1XYZ"});
}

}  // namespace
}  // namespace brelwin
