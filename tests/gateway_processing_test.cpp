// The gateway at work: what it posts, says, logs and sounds, cycle by cycle.
#include "gateway/gateway_processing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "gateway/gateway_gates.h"
#include "gateway_story.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

using test::GatewayStory;

const std::string Short = " - - - - - - - - - - - - - - - - - - - - - - - - - - ";
const std::string Long = Short + "- - - - - - - - - - - - - - - ";
std::string Begin(const std::string& station) {
  return "Begin processing alert matched spot for " + station + " (BaseCallsign=" + station + "):\n";
}
const std::string Sending = "About to call SendRBNSpotToSotawatch& to send the spot.\n";
const std::string Sent =
    Sending + "SendRBNSpotToSotawatch& returned status -1\nThe spot was sent successfully!\n";

std::string LogLine(const Spot& spot) {
  return "2026-11-24 12:00:00:  " + FixedWidthLine(spot);
}

TEST(GatewayProcessing, SendsASpotThatPassesEveryGate) {
  GatewayStory story;
  story.Values = {
      .MaxDupeAgeMinutes = 30, .DelaySeconds = 10, .SoundFile = "sent.wav", .PlaySoundOnSuccess = true};
  story.Disk.Put("/brelwin/sent.wav", "RIFF");
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  const auto start = story.Time.Now();
  EXPECT_EQ(story.Process({spot}), -1);
  EXPECT_EQ(SecondsBetween(start, story.Time.Now()), 10);
  EXPECT_EQ(story.GatewayEvents(), Begin("G4ABC") +
                                       "Begin delay of 10 seconds before final dupe check using RSS\n" +
                                       "End delay before final dupe check using RSS\n" + Sent);
  EXPECT_NE(
      story.EventLog().find("(BaseCallsign=G4ABC):\r\n2026-11-24 12:00:00: 2026-11-24 12:00:00|12:00|G4ABC|"),
      std::string::npos);
  EXPECT_EQ(spot->Comment, "CQ CQ at 22 wpm. S/N=17 dB at DL8LAS {Via Tarnlink}");
  EXPECT_EQ(spot->LogLinePreceeding + spot->LogLineFollowing, "");
  EXPECT_EQ(story.Posts("G4ABC"), 1U);
  ASSERT_EQ(story.Sound.Played.size(), 1U);
  EXPECT_FALSE(story.Sound.Played[0].second);
  EXPECT_EQ(story.Message, "");
  ASSERT_EQ(story.Tab.lstGatewayJournal.Items.Get().size(), 1U);
  EXPECT_EQ(story.Tab.lstGatewayJournal.Items.Get()[0],
            "2026-11-24 12:00:10  G4ABC             14.062  sent: " + spot->Comment);
}

TEST(GatewayProcessing, FillsTheTemplateWithQuestionMarksAndCutsIt) {
  GatewayStory story;
  story.Tab.txtSpotCommentTemplate.Text = " XXX YYY ZZZ XXX xxx " + std::string(70, 'e');
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  spot->Speed = 0;
  spot->SignalToNoiseRatio = -3;
  story.Process({spot});
  EXPECT_EQ(spot->Comment, "? ? DL8LAS ? xxx " + std::string(43, 'e'));
}

TEST(GatewayProcessing, RefusesADuplicateThatSotawatchHas) {
  GatewayStory story;
  story.Values.SoundFile = "dupe.wav";
  story.Values.PlaySoundOnDupe = true;
  story.Disk.Put("/brelwin/dupe.wav", "RIFF");
  const auto duplicate = story.SotawatchSpot({"G4ABC", "14.0623", 10});
  story.Recent.AddInFront(duplicate, duplicate->ID);
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  EXPECT_EQ(story.Process({spot}), -1);
  EXPECT_EQ(story.GatewayEvents(),
            Begin("G4ABC") + "Spot not submitted because of a duplicate already in Sotawatch:\n");
  EXPECT_TRUE(story.EventLog().ends_with(": " + DelimitedLine(*duplicate, "|") + "\r\n"));
  EXPECT_EQ(story.GatewayLog(), Short + "\r\n" + LogLine(*spot) + "\r\n" +
                                    "Spot not submitted because of a duplicate already in Sotawatch.\r\n" +
                                    "This is the duplicate spot:\r\n" + LogLine(*duplicate) + "\r\n" + Short +
                                    "\r\n");
  EXPECT_EQ(duplicate->LogLinePreceeding, "");
  EXPECT_EQ(story.Sound.Played.size(), 1U);
  EXPECT_TRUE(story.Internet.Queries.empty());
  EXPECT_TRUE(story.Internet.Posts.empty());
}

// The feed, what precedes the entry in the gateway's log (nothing: the spot is sent), and the event.
using FeedCase = std::tuple<std::vector<test::ListedSpot>, std::string, std::string>;

TEST(GatewayProcessing, LooksAtTheFreshFeedBeforeItSends) {
  const std::string duplicate =
      " - - - - The following spot not submitted because of a duplicate RSS spot  - - - -";
  const std::string duplicateEvent = "Duplicate RSS spot found.\n";
  const std::string near =
      " - - - - The following spot not submitted because the activator changed frequency by less than 1 kHz "
      "as per "
      "RSS spots  - - - -";
  const std::string nearEvent =
      "Spot not submitted because the activator changed frequency by less than 1 kHz as per RSS spots.\n";
  const std::string optOut =
      " - - - The following spot not submitted because the activator opted out with NOTARNLINK/RBNN - - -";
  const std::string optOutEvent =
      "Spot not submitted because the activator opted out with NOTARNLINK/RBNN.\n";
  const std::vector<FeedCase> cases{
      {{{"G4ABC", "14.062", 3}}, duplicate, duplicateEvent},
      {{{"G4ABC", "7.032", 1}, {"G4ABC", "14.062", 3}}, duplicate, duplicateEvent},  // keys come first
      {{{"HB9XYZ", "7.032", 1}, {"G4ABC", "14.0626", 3}}, near, nearEvent},
      {{{"G4ABC", "14.0626", 30}}, near, nearEvent},
      {{{"G4ABC", "14.063", 3}}, "", Sent},
      {{{"G4ABC", "7.032", 3}, {"G4ABC", "14.0626", 5}}, "", Sent},
      {{{"G4ABC", "7.032", 1}, {"EA/G4ABC", "7.032", 3, "no Tarnlink! Posted by G4ABC"}},
       optOut,
       optOutEvent},
      {{{"G4ABC", "7.032", 1, "back again Posted by G4ABC"}, {"G4ABC", "7.032", 3, "RBNN Posted by G4ABC"}},
       "",
       Sent},
      {{{"G4ABC", "7.04", 1, "own post Posted by G4ABC"}, {"G4ABC", "7.032", 3, "RBNN Posted by G4ABC"}},
       optOut,
       optOutEvent},
      {{{"G4ABC", "7.032", 3, "RBNN, says Posted by G4XYZ"}}, "", Sent},
      {{}, "", "No spots received from Sotawatch via RSS, so can't do final dupe check.\n" + Sent},
  };
  for (const auto& [feed, preceding, event] : cases) {
    GatewayStory story;
    story.Feed(feed);
    story.TheGateway.Posted.Remember(*story.SkimmerSpot("G4ABC", "7.04"), "own post");
    const auto spot = story.SkimmerSpot("G4ABC", "14.062");
    story.Process({spot});
    EXPECT_EQ(story.GatewayEvents(), Begin("G4ABC") + event);
    EXPECT_EQ(story.GatewayLog().starts_with(preceding + "\r\n" + LogLine(*spot) + "\r\n" + Long + "\r\n"),
              !preceding.empty());
    EXPECT_EQ(story.Posts("G4ABC"), preceding.empty() ? 1U : 0U);
  }
  GatewayStory story;
  story.Feed({{"G4ABC", "1296.301", 3}});
  story.Process({story.SkimmerSpot("G4ABC", "1296.3")});
  EXPECT_EQ(story.Posts("G4ABC"), 1U) << "1 kHz as it is written, though the numbers behind are closer";
}

// Newest first; what settles it ends the search.
TEST(GatewayProcessing, ComparesWithTheSpotsThatAreHeld) {
  const std::pair<std::vector<test::ListedSpot>, bool> cases[] = {
      {{{"G4ABC", "14.062", 30}}, true},
      {{{"G4ABC", "14.0614", 10}}, false},
      {{{"G4ABC", "7.032", 5}, {"G4ABC", "14.062", 10}}, false},
      {{{"G4ABC", "14.070", 5}, {"G4ABC", "14.0621", 10}}, true},
      {{{"HB9XYZ", "7.032", 31}, {"G4ABC", "14.062", 10}}, false},
      {{{"HB9XYZ", "7.032", -31}, {"G4ABC", "14.062", 10}}, false},  // as far in the future
  };
  for (const auto& [held, isDuplicate] : cases) {
    GatewayStory story;
    story.Recent.Clear();
    story.Recent.Add(story.SkimmerSpot("G4ABC", "14.062"), "one of the stream settles nothing");
    for (const auto& item : held) story.Recent.Add(story.SotawatchSpot(item), item.Station + item.Frequency);
    story.Process({story.SkimmerSpot("G4ABC", "14.062")});
    EXPECT_EQ(story.Posts("G4ABC"), isDuplicate ? 0U : 1U) << held[0].Frequency << " " << held[0].MinutesAgo;
  }
}

TEST(GatewayProcessing, GivesUpWithoutSpotsToCompareWith) {
  GatewayStory story;
  story.Recent.Clear();
  story.Internet.Forget(story.Config.Addresses.SotawatchRSS);
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  EXPECT_EQ(story.Process({spot, story.SkimmerSpot("HB9DEF", "7.031")}), -1);
  EXPECT_EQ(
      story.GatewayEvents(),
      Begin("G4ABC") + "No current Sotawatch spots\n" +
          "No spots received from Sotawatch via RSS, so can't do final dupe check.\n" +
          "NO spots received from Sotawatch via RSS OR Twitter. This is a big problem. Gateway processing "
          "aborted.\n");
  EXPECT_EQ(story.GatewayLog(),
            " - - - The following spot not submitted because NO Sotawatch spots are available for dupe "
            "checking - - "
            "-\r\n" +
                LogLine(*spot) + "\r\n" + Long + "\r\n");
  EXPECT_TRUE(story.Internet.Posts.empty());

  story.TheGateway.RecentSotawatchSpots = nullptr;
  EXPECT_EQ(story.Process({spot}), -1);
  EXPECT_TRUE(
      story.EventLog().ends_with("PerformGatewayProcessing - prvColCurrentSotawatchSpots is nothing\r\n"));
}

TEST(GatewayProcessing, PassesOverWhomItDoesNotSend) {
  GatewayStory story;
  story.Excluded.Add("G4ABC", "G4ABC");
  story.Recent.AddInFront(story.SotawatchSpot({"G4ABC", "14.062", 1}),
                          "a duplicate, which is not looked for");
  story.Recent.AddInFront(story.SotawatchSpot({"HB9DEF", "7.031", 1}), "another one");
  const auto excluded = story.SkimmerSpot("G4ABC", "14.062");
  const auto unmatched = story.SkimmerSpot("G4AAA", "14.062");
  unmatched->IsMatchedToAlert = false;
  const auto beacon = story.SkimmerSpot("G4BBB", "14.062");
  beacon->SpotTypeString = "BEACON";
  EXPECT_EQ(story.Process({excluded, unmatched, beacon}), -1);
  EXPECT_EQ(story.GatewayEvents(), Begin("G4ABC") + "Activator is an excluded activator:G4ABC\n");
  EXPECT_EQ(story.GatewayLog(),
            " - - - The following spot not submitted because activator is excluded from spotting - - -\r\n" +
                LogLine(*excluded) + "\r\n" + Long + "\r\n");

  ExcludeActivator(story.Excluded, "DL/PA3XYZ asked by HB9DEF");
  const auto abroad = story.SkimmerSpot("GW/PA3XYZ/P", "7.032");
  const auto early = story.SkimmerSpot("HB9DEF", "7.031");
  early->WindowReference = "GM/SS-064";
  EXPECT_EQ(story.Process({abroad, early}), -1);
  const auto& journal = story.Tab.lstGatewayJournal.Items.Get();
  EXPECT_TRUE(journal[1].ends_with("not sent: the activator is excluded by DL/PA3XYZ asked by HB9DEF"))
      << journal[1];
  EXPECT_TRUE(journal[0].ends_with("only by the \"S-\" in \"GM/SS-064\" of the alert's comment"));

  story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false;
  story.Tab.chkRBNSendMySpotsToSotawatch.Value = true;
  story.RBN.txtRBNCallsign.Text = " q0zz/p ";
  const auto mine = story.SkimmerSpot("Q0ZZ", "14.062");
  mine->SpotTypeString = " cq ";
  EXPECT_EQ(story.Process({story.SkimmerSpot("HB9DEF", "7.031"), mine}), -1);
  EXPECT_TRUE(story.GatewayEvents().ends_with(Begin("HB9DEF") + Begin("Q0ZZ") + Sent));
  EXPECT_EQ(story.Internet.Posts.size(), 1U);
}

TEST(GatewayProcessing, KeepsTheIntervalWhateverTheWallClockDoes) {
  GatewayStory story;
  story.Values.MinSecondsBetweenSpotsOfSameStation = 600;
  story.Process({story.SkimmerSpot("G4ABC", "14.062")});
  story.Time.SetLocalTime(AddMinutes(story.Time.LocalNow(), -60));
  story.Queue.RunFor(std::chrono::seconds(599));
  const auto reads = story.Internet.Queries.size();
  story.Process({story.SkimmerSpot("G4ABC", "7.033")});
  EXPECT_EQ(story.Internet.Queries.size(), reads + 1) << "the feed is looked at before the interval";
  const std::string tooSoon =
      "Spot not sent because the gateway sent a spot for the same station 599 seconds ago (min sec for "
      "respot=600).\n";
  EXPECT_TRUE(story.GatewayEvents().ends_with(Begin("G4ABC") + tooSoon)) << story.GatewayEvents();
  EXPECT_EQ(story.Posts("G4ABC"), 1U);

  const auto duplicate =
      story.SotawatchSpot({"G4ABC", "7.033", 1});  // the line is written for duplicates as well
  story.Recent.AddInFront(duplicate, "new");
  story.Process({story.SkimmerSpot("G4ABC", "7.033")});
  EXPECT_TRUE(story.GatewayEvents().ends_with("already in Sotawatch:\n" + tooSoon)) << story.GatewayEvents();

  story.Queue.RunFor(std::chrono::seconds(2));
  story.Process({story.SkimmerSpot("G4ABC", "21.031")});
  EXPECT_EQ(story.Posts("G4ABC"), 2U);
}

// What was spotted before lies in the wall clock's future then, and is a duplicate all the same.
TEST(GatewayProcessing, FindsDuplicatesInAFeedFromBeforeTheClockWasSetBack) {
  GatewayStory story;
  story.Feed({{"G4ABC", "14.0626", 5}});
  story.Time.SetLocalTime(AddMinutes(story.Time.LocalNow(), -60));
  story.Process({story.SkimmerSpot("G4ABC", "14.062")});
  EXPECT_EQ(story.Posts("G4ABC"), 0U) << story.GatewayEvents();
}

TEST(GatewayProcessing, LooksAtNothingUnlessEverythingIsThere) {
  void (*const changes[])(GatewayStory&) = {
      [](GatewayStory& story) { story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false; },
      [](GatewayStory& story) { story.Tab.txtSotawatchLogin.Text = " "; },
      [](GatewayStory& story) { story.Tab.txtSotawatchPassword.Text = ""; },
      [](GatewayStory& story) {
        story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false;
        story.Tab.chkRBNSendMySpotsToSotawatch.Value = true;
        story.RBN.txtRBNCallsign.Text = " ";
      },
      [](GatewayStory& story) { story.RBN.chkRBNFilterDuplicateSpots.Value = false; },
      [](GatewayStory& story) { story.RBN.txtDuplicateSpotFilteringPeriod.Text = "0.5"; }};
  for (const auto change : changes) {
    GatewayStory story;
    change(story);
    EXPECT_EQ(story.Process({story.SkimmerSpot("G4ABC", "14.062")}), 0);
    EXPECT_EQ(story.EventLog(), "");
    EXPECT_TRUE(story.Internet.Posts.empty());
  }
  GatewayStory corrected;
  corrected.RBN.chkRBNFilterDuplicateSpots.Value = false;
  corrected.RBN.txtDuplicateSpotFilteringPeriod.Text = "none";
  corrected.Process({corrected.SkimmerSpot("G4ABC", "14.062")});
  EXPECT_TRUE(corrected.RBN.chkRBNFilterDuplicateSpots.Value);
  EXPECT_EQ(corrected.RBN.txtDuplicateSpotFilteringPeriod.Text.Get(), "10");
  EXPECT_EQ(corrected.Process({corrected.SkimmerSpot("G4ABC", "14.062")}), -1);
  EXPECT_EQ(corrected.Process({}), 0);
}

// What is changed while the third of twenty spots waits, one of them the user's own; the journal's last word;
// and how many spots are sent in all.
using Change = std::tuple<void (*)(GatewayStory&), std::string, std::size_t>;

TEST(GatewayProcessing, ObeysAtOnceWhileSpotsWait) {
  const Change changes[] = {
      {[](GatewayStory& story) { story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false; },
       "the gateway or the stream was switched off meanwhile", 2},
      {[](GatewayStory& story) { story.RBN.chkReverseBeaconSpotsEnabled.Value = false; },
       "the gateway or the stream was switched off meanwhile", 2},
      {[](GatewayStory& story) { story.Tab.txtSotawatchPassword.Text = " "; },
       "the login or the password was emptied meanwhile", 2},
      {[](GatewayStory& story) {
         story.Tab.chkRBNSendMySpotsToSotawatch.Value = true;
         story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false;
       },
       "only spots of your own callsign are sent meanwhile", 3},
      {[](GatewayStory& story) { story.Time.MoveTo(story.Time.Now() + std::chrono::minutes(3)); },
       "the program stood still for some minutes after the spot may have been heard", 2}};
  for (const auto& [change, words, sent] : changes) {
    GatewayStory story;
    story.Values.DelaySeconds = 10;
    std::vector<SpotPointer> spots{story.SkimmerSpot("Q0ZZ", "7.031")};
    for (char letter = 'A'; letter < 'T'; ++letter)
      spots.push_back(story.SkimmerSpot("G4AB" + std::string(1, letter), "14.062"));
    std::rotate(spots.begin(), spots.begin() + 1, spots.begin() + 10);
    const auto begin = story.Time.Now();
    std::optional<Instant> changed;
    story.Queue.OnYield = [&, change = change] {
      story.Stalls.Look(story.Time.Now());
      if (changed || story.Time.Now() - begin < std::chrono::seconds(25)) return;
      change(story);
      changed = story.Time.Now();
    };
    EXPECT_EQ(story.Process(spots), -1);
    EXPECT_EQ(story.Internet.Posts.size(), sent) << words;
    EXPECT_LE(story.Time.Now() - *changed, std::chrono::seconds(sent == 2 ? 1 : 11)) << words;
    const auto& journal = story.Tab.lstGatewayJournal.Items.Get();
    EXPECT_EQ(journal.size(), spots.size());
    EXPECT_TRUE(journal[0].ends_with("not sent: " + words)) << journal[0];
  }
}

TEST(GatewayProcessing, HoldsAFormBackToTheLastMoment) {
  GatewayStory story;
  story.Internet.AnswerPost({.Connecting = Milliseconds(3000)});
  const auto click = story.Queue.CallAfter(std::chrono::seconds(1),
                                           [&] { story.Tab.chkRBNSendAllSpotsToSotawatch.Value = false; });
  story.Process({story.SkimmerSpot("G4ABC", "14.062")});
  EXPECT_TRUE(story.Internet.Posts.empty());
  EXPECT_TRUE(story.Tab.lstGatewayJournal.Items.Get()[0].ends_with(
      "not sent: switched off, or held up for too long, before the form had left"));
  EXPECT_TRUE(
      story.GatewayLog().ends_with("Submission held back, switched off, or held up for too long, "
                                   "before the form had left.\r\n"));
}

TEST(GatewayProcessing, PutsEveryFailureIntoWordsAndGoesOn) {
  GatewayStory story;
  story.Tab.txtSotawatchPassword.Text = "wrong";
  const auto badSummit = story.SkimmerSpot("HB9DEF", "7.031");
  badSummit->SummitDesignator = "LD-001";
  EXPECT_EQ(story.Process({story.SkimmerSpot("G4ABC", "14.062"), badSummit}), -1);
  EXPECT_TRUE(story.GatewayEvents().ends_with("returned status -500\n"));
  EXPECT_NE(story.GatewayEvents().find("returned status -600\n"), std::string::npos);
  EXPECT_EQ(story.Message, "Submission failed, local data validation error.");
  EXPECT_EQ(story.TheGateway.SentSpotsByStation.Count(), 0U);
  EXPECT_EQ(story.Tab.lblGatewayLastFailure.Caption.Get(),
            "Last submission without success: HB9DEF at 12:00: not sent: the summit is not of the form "
            "association/region-number");
  story.Internet.AnswerPost({.Status = 0, .ErrorText = "Connection refused"});
  story.Process({story.SkimmerSpot("G4ABC", "14.062")});
  EXPECT_EQ(story.Message,
            "Submission failed, protocol error. ResponseCode=1 ResponseInfo=Connection refused");
}

TEST(GatewayProcessing, WaitsForASubmissionUnderWayButNotForEver) {
  for (const bool ends : {true, false}) {
    GatewayStory story;
    story.Internet.AnswerPost({.Body = "late", .Delay = Milliseconds(ends ? 3000 : -1)});
    story.TheGateway.Transfer.Post("https://form.test/", "other");
    const auto result = story.Process({story.SkimmerSpot("G4ABC", "14.062")});
    EXPECT_EQ(result, ends ? -1 : -200);
    EXPECT_EQ(story.Posts("G4ABC"), ends ? 1U : 0U);
    const std::string waiting = Begin("G4ABC") + "There is already a gateway send in progresss. Waiting...\n";
    EXPECT_EQ(story.GatewayEvents(),
              waiting + (ends ? "The gateway send that was in progress has now completed.\n" + Sent
                              : "Timed out waiting for gateway send in progress to complete\n"));
  }
}

// Wherever something breaks, the procedure ends with a log line, and the next check works as always.
TEST(GatewayProcessing, TrapsAnErrorInAnyWait) {
  GatewayStory whole;
  whole.Values.DelaySeconds = 1;
  whole.Process({whole.SkimmerSpot("G4ABC", "14.062")});
  for (int breaking = 1; breaking <= whole.Queue.Yields; ++breaking) {
    GatewayStory story;
    story.Values.DelaySeconds = 1;
    story.Queue.OnYield = [&] {
      if (story.Queue.Yields == breaking) throw std::out_of_range("broken");
    };
    story.Process({story.SkimmerSpot("G4ABC", "14.062")});
    const auto log = story.EventLog() + story.GatewayLog();
    const bool isTold = Contains(log, "PerformGatewayProcessing Error, Number=9 Error=broken") ||
                        Contains(log, "SendSpotToSotawatchHandler: errNumber=9 errString$=broken") ||
                        Contains(log, "No spots received from Sotawatch") ||
                        Contains(log, "Spot sumission failed, timeout.");
    EXPECT_TRUE(isTold) << breaking << "\n" << log;
    EXPECT_FALSE(story.World.Going.Includes(Activity::SendInProgress) ||
                 story.World.Going.Includes(Activity::FetchInProgress));
    story.Process({story.SkimmerSpot("HB9DEF", "7.031")});
    EXPECT_EQ(story.Posts("HB9DEF"), 1U) << breaking;
  }
}

TEST(GatewayProcessing, OnlySaysWhatItWouldSendInADryRun) {
  GatewayStory story;
  story.Tab.chkGatewayDryRun.Value = true;
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  EXPECT_EQ(story.Process({spot}), -1);
  EXPECT_EQ(story.GatewayEvents(),
            Begin("G4ABC") + Sending +
                "Dry run, the spot would have been sent: "
                "actCallsign=G4ABC&assoc=G&summit=LD-001&freq=14.062&mode=cw"
                "&callsign=q0zz&password=(hidden)&submit=SPOT!&comments="
                "CQ%20CQ%20at%2022%20wpm%2E%20S%2FN%3D17%20dB%20at%20DL8LAS%20%7BVia%20Tarnlink%7D\n");
  EXPECT_TRUE(story.Internet.Posts.empty());
  EXPECT_EQ(story.TheGateway.SentSpotsByStation.Count(), 0U);
  EXPECT_EQ(story.GatewayLog(), "");
}

}  // namespace
}  // namespace brelwin
