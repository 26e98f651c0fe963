// A whole check with a long list: 200 new spots from the feed, a thousand skimmers' lines since the check
// before, 10,000 spots listed. What counts is the longest time in which the window is not served; painting is
// not in it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "made_spots.h"
#include "program_story.h"
#include "radio/dates.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t Listed = 10'000;
constexpr std::size_t NewSpots = 200;
constexpr std::size_t Lines = 1'000;
constexpr auto BetweenChecks = std::chrono::seconds(10);
constexpr Milliseconds Step{10};
constexpr int MostChecks = 400;

using WallClock = std::chrono::steady_clock;

std::string StreamLines() {
  std::string lines;
  for (std::size_t line = 0; line < Lines; ++line)
    lines += "DX de KM3T-2-#:  14" + std::to_string(100 + line % 200) + ".0  DL" + std::to_string(line) +
             "A         CW    24 dB  22 WPM  CQ      1201Z\r\n";
  return lines + test::HeardLine;
}

struct LongDay : test::ProgramStory {
  LongDay() {
    Settings("SecondsBetweenChecks=10\r\nMaximumSpotsInList=10000\r\nMaximumSpotAge=1440\r\n",
             "RBNSpotsEnabled=1\r\nFilterSotawatchMatchingAlert=1\r\n");
    auto peer = LoggingIn();
    for (int check = 0; check < MostChecks; ++check) peer.Sends(StreamLines(), BetweenChecks);
    Sockets.Peer(std::move(peer));
    Internet.AnswerAlways(test::FeedAddress, MakeFeed(Listed, UTCNow(Time)));
    Brelwin.Start({}, {});
    Queue.RunFor(BetweenChecks);
  }

  // Runs to the next check and through it; the seconds of what took longest.
  double LongestStretch() {
    std::chrono::duration<double> longest{0};
    for (Milliseconds passed{0}; passed < BetweenChecks; passed += Step) {
      const auto start = WallClock::now();
      Queue.RunFor(Step);
      longest = std::max<std::chrono::duration<double>>(longest, WallClock::now() - start);
    }
    return longest.count();
  }
};

// The announced station that is heard again is on top, then come the new spots, and as many have gone.
bool HasMovedOn(const SpotRows& before, const SpotRows& now) {
  return now.size() == Listed && now.at(0)->IsMatchedToAlert && now.at(NewSpots) != before.at(1) &&
         now.at(NewSpots + 1) == before.at(1);
}

void CheckOfALongDay(benchmark::State& state) {
  LongDay day;
  bool hasMovedOn = true;
  for (auto _ : state) {
    day.Internet.AnswerAlways(test::FeedAddress, MakeFeed(NewSpots, UTCNow(day.Time)));
    const auto before = day.ListedSpots();
    state.SetIterationTime(day.LongestStretch());
    hasMovedOn = hasMovedOn && HasMovedOn(before, day.ListedSpots());
  }
  if (!hasMovedOn) state.SkipWithError("not the list that was expected");
}
BENCHMARK(CheckOfALongDay)->Unit(benchmark::kMillisecond)->Iterations(40)->UseManualTime();

}  // namespace
}  // namespace brelwin::benchmarks
