// The gateway: from a skimmer's line to the post, a check full of duplicates, and the gates alone.
#include <benchmark/benchmark.h>

#include <chrono>

#include "gateway/gateway_gates.h"
#include "gateway_story.h"
#include "platform/system_files.h"
#include "rbn/spot_parser.h"
#include "spots/rss_feed.h"
#include "temporary_folder.h"

namespace brelwin::benchmarks {
namespace {

using WallClock = std::chrono::steady_clock;

constexpr int SpotCount = 200;  // matched, and held of Sotawatch
constexpr int FeedLength = 50;

std::string StationOf(int number) {
  const auto letter = [](int value) { return static_cast<char>('A' + value % 26); };
  return {'G', static_cast<char>('0' + number % 10), letter(number / 10), letter(number / 260), 'X'};
}

// A gateway with logs on the disk. Sotawatch holds a spot of every station, on 14.062 MHz.
struct GatewayOnDisk {
  test::TemporaryFolder Folder;
  SystemFiles Disk;
  test::GatewayStory Story;
  Host World = Story.WithFiles(Disk);
  Gateway TheGateway{World,          Story.Tab,     Story.RBN,   Story.Config, &Story.Recent,
                     Story.Excluded, Story.Trusted, Story.Known, Story.Stalls};

  GatewayOnDisk() {
    World.ProgramFolder = Folder.In("");
    Story.Recent = {};
    for (int number = 0; number < SpotCount; ++number) {
      const auto spot = Story.SotawatchSpot({StationOf(number), "14.062", 5});
      Story.Recent.Add(spot, spot->ID);
    }
    Story.Feed(std::vector<test::ListedSpot>(FeedLength, {"HB9XYZ", "7.032", 5}));
  }

  void EmptyFolder() const {
    for (const auto& file : std::filesystem::directory_iterator(Folder.Path())) std::filesystem::remove(file);
  }

  SpotCollection MatchedSpots() const {
    SpotCollection spots;
    for (int number = 0; number < SpotCount; ++number) {
      const auto spot = Story.SkimmerSpot(StationOf(number), "14.062");
      spots.Add(spot, spot->ID);
    }
    return spots;
  }
};

AlertCollection AlertOf(const std::string& station, DateTime time) {
  SOTAAlert alert;
  alert.AlertKey = alert.ID = station;
  alert.stationBaseCallsign = station;
  alert.SummitDesignator = "G/LD-001";
  SetAlertDateAndTime(alert, time);
  AlertCollection alerts;
  alerts.Add(std::make_shared<const SOTAAlert>(std::move(alert)));
  return alerts;
}

// From the line to the moment in which its post is handed to the HTTP control, without waiting.
void LineToPost(benchmark::State& state) {
  GatewayOnDisk gateway;
  const auto alerts = AlertOf("DL1ABC", gateway.Story.Time.LocalNow());
  WallClock::time_point posted;
  gateway.Story.Internet.ServePost = [&](const HttpRequest&) {
    posted = WallClock::now();
    return test::ScriptedAnswer{.Body = "submission failed"};
  };
  SpotFilter filter;
  filter.FilterDuplicateSpots = true;
  filter.MaxMinutesBeforeAlertTime = filter.MaxMinutesAfterAlertTime = 60;
  for (auto _ : state) {
    RecentRBNSpots recent;
    SpotCollection heard;
    std::int32_t lines = 0;
    std::string text;
    const auto arrived = WallClock::now();
    ParseReverseBeaconSpots(gateway.World,
                            "DX de KM3T-2-#:  14062.0  DL1ABC         CW    24 dB  22 WPM  CQ      1201Z\r\n",
                            filter, gateway.Story.Known, alerts, recent, heard, lines, text);
    PerformGatewayProcessing(gateway.TheGateway, heard, gateway.Story.Time.Now(), gateway.Story.Values, text);
    if (posted < arrived) state.SkipWithError("nothing was posted");
    state.SetIterationTime(std::chrono::duration<double>(posted - arrived).count());
    gateway.EmptyFolder();
  }
}
BENCHMARK(LineToPost)->UseManualTime()->Unit(benchmark::kMicrosecond);

// Reading the feed for the final check.
void LineToPostFloor(benchmark::State& state) {
  GatewayOnDisk gateway;
  RSSReadRequest request;
  request.Url = gateway.Story.Config.Addresses.SotawatchRSS;
  request.MaximumAgeInMinutes = 30;
  for (auto _ : state) {
    SpotCollection feed;
    const auto begin = WallClock::now();
    ReadSotawatchRSS(gateway.World, request, gateway.Story.Known, feed);
    state.SetIterationTime(std::chrono::duration<double>(WallClock::now() - begin).count());
  }
}
BENCHMARK(LineToPostFloor)->UseManualTime()->Unit(benchmark::kMicrosecond);

void RefuseDuplicates(benchmark::State& state) {
  GatewayOnDisk gateway;
  const auto spots = gateway.MatchedSpots();
  std::string message;
  for (auto _ : state) {
    PerformGatewayProcessing(gateway.TheGateway, spots, gateway.Story.Time.Now(), gateway.Story.Values,
                             message);
    state.PauseTiming();
    if (!gateway.Story.Internet.Queries.empty())
      state.SkipWithError("not all were refused by the first check");
    gateway.EmptyFolder();
    state.ResumeTiming();
  }
}
BENCHMARK(RefuseDuplicates)->Unit(benchmark::kMillisecond);

// As many appends as the refusals take, of texts as long.
void RefuseDuplicatesFloor(benchmark::State& state) {
  GatewayOnDisk gateway;
  const std::string record(140, 'r');
  const std::string entry(560, 'e');
  for (auto _ : state) {
    for (int spot = 0; spot < SpotCount; ++spot) {
      for (int line = 0; line < 4; ++line)
        (void)gateway.Disk.Append(gateway.Folder.In("events"), record, FileAccess::Everyone);
      (void)gateway.Disk.Append(gateway.Folder.In("spots"), entry, FileAccess::Everyone);
    }
    state.PauseTiming();
    gateway.EmptyFolder();
    state.ResumeTiming();
  }
}
BENCHMARK(RefuseDuplicatesFloor)->Unit(benchmark::kMillisecond);

// Both searches and the verdict of a spot that Sotawatch does not have, so that everything is looked through.
void Gates(benchmark::State& state) {
  GatewayOnDisk gateway;
  const auto spot = gateway.Story.SkimmerSpot("DL1ABC", "14.062");
  const DupeAge age{gateway.Story.Time.Now(), 30};
  for (auto _ : state) {
    GatewayFacts facts;
    facts.IsGatewaySpot = facts.IsSwitchedOn = facts.HasLogin = facts.SendsEveryone = true;
    facts.InCurrentSpots = SearchCurrentSpots(&gateway.Story.Recent, *spot, age).Finding;
    facts.InFeed = SearchFeedSpots(gateway.Story.Recent, *spot, age).Finding;
    benchmark::DoNotOptimize(DecideGatewaySpot(facts));
  }
}
BENCHMARK(Gates);

// Walking the spots twice and comparing one text of each.
void GatesFloor(benchmark::State& state) {
  GatewayOnDisk gateway;
  const std::string station = "DL1ABC";
  for (auto _ : state) {
    std::size_t found = 0;
    for (int walk = 0; walk < 2; ++walk)
      for (const auto& entry : gateway.Story.Recent) found += entry.Item->stationBaseCallsign == station;
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(GatesFloor);

}  // namespace
}  // namespace brelwin::benchmarks
