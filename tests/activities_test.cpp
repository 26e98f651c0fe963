// What may begin while something else goes on: every row of the table is tried on the running program.
#include <gtest/gtest.h>

#include "cycle/program.h"
#include "program_story.h"

namespace brelwin {
namespace {

using test::AlertsAddress;
using test::FeedAddress;
using test::ProgramStory;

struct Begun : ProgramStory {
  explicit Begun(std::string_view commandLine) {
    Settings("SecondsBetweenChecks=30\r\nAlertSound=chimes.wav\r\n", "RBNSpotsEnabled=1\r\n");
    Disk.Put("/brelwin/chimes.wav", "RIFF");
    Brelwin.Start(commandLine, {});
    Queue.RunFor(std::chrono::seconds(31));
  }
};

bool AllMayStart(std::initializer_list<Work> all, Activity during) {
  for (const auto work : all) {
    if (!MayStart(work, during)) return false;
  }
  return true;
}

TEST(Activities, LetBeginWhatTheTableSays) {
  for (std::size_t index = 0; index < ActivityCount; ++index) {
    const auto activity = static_cast<Activity>(index);
    SCOPED_TRACE(index);
    Begun program(activity == Activity::StartupDelay ? "DELAY=3600" : "");
    const ActivityMark mark(program.World.Going, activity);

    program.Window().Filters.cmdPlayAlertSound.Click();
    EXPECT_EQ(program.Sound.Played.size() == 1, MayStart(Work::Handler, activity));

    // Without a login it is refused in words, and so it is beside a submission.
    program.Window().Gateway.cmdTestSotawatchLogin.Click();
    const bool isAnswered = MayStart(Work::LoginTest, activity) || activity == Activity::SendInProgress;
    EXPECT_EQ(program.Dialogs.Shown.size() == 1, isAnswered);

    auto reads = program.ReadsOf(FeedAddress);
    program.Window().Spots.cmdGetSPOTS.Click();
    EXPECT_EQ(program.ReadsOf(FeedAddress) > reads, AllMayStart({Work::Command, Work::Fetch}, activity));

    reads = program.ReadsOf(FeedAddress);
    const auto alertsReads = program.ReadsOf(AlertsAddress);
    program.Queue.RunFor(std::chrono::minutes(7));
    EXPECT_EQ(program.ReadsOf(FeedAddress) > reads,
              AllMayStart({Work::Tick, Work::Check, Work::Fetch}, activity));
    EXPECT_EQ(program.ReadsOf(AlertsAddress) > alertsReads,
              AllMayStart({Work::Tick, Work::Check, Work::Fetch, Work::StreamSteps}, activity));
  }
}

}  // namespace
}  // namespace brelwin
