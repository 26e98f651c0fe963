// Filtering 100,000 spots by six lists of ten entries.
#include <benchmark/benchmark.h>

#include "made_spots.h"
#include "spots/spot_filter.h"
#include "test_host.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t SpotCount = 100'000;
constexpr std::size_t ListCount = 6;

const SpotCollection& Spots() {
  static const auto spots = MakeSpots(0, SpotCount);
  return spots;
}

template <class Values>
std::string ListOf(const Values& values, std::string_view after) {
  std::string list;
  for (const auto& value : values) list.append(list.empty() ? "" : ",").append(value).append(after);
  return list;
}

// Every spot is on every list, so none is dropped by an early list and spared the others.
SpotFilter FilterThatAllPass() {
  SpotFilter filter;
  filter.NoSpotSourceFiltering = true;
  filter.Station = filter.Spotter = ListOf(Prefixes, "*");
  filter.SummitReference = ListOf(Regions, "*");
  filter.mode = ListOf(Modes, "");
  filter.Band = "3.5,7,10,14,18,21,28,144,420,50";
  filter.Points = "1,2,3,4,5,6,7,8,9,10";
  return filter;
}

void CountSpotsAndLists(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(SpotCount * ListCount));
}

void Filter(benchmark::State& state) {
  test::TestHost host;
  const auto filter = FilterThatAllPass();
  const auto& spots = Spots();
  for (auto _ : state) {
    SpotCollection filtered;
    filter.GetFilteredSpots(host.World, spots, filtered);
    state.PauseTiming();
    if (filtered.Count() != SpotCount) state.SkipWithError("not all spots passed");
    filtered.Clear();
    state.ResumeTiming();
  }
  CountSpotsAndLists(state);
}
BENCHMARK(Filter)->Unit(benchmark::kMillisecond);

// Walking the spots and comparing six texts of each.
void FilterFloor(benchmark::State& state) {
  const std::string station = "G4ABC", summit = "G/LD-001", band = "14", mode = "CW", points = "10";
  const auto& spots = Spots();
  for (auto _ : state) {
    std::size_t equal = 0;
    for (const auto& entry : spots) {
      const auto& spot = *entry.Item;
      equal += spot.Station == station;
      equal += spot.Spotter == station;
      equal += spot.SummitDesignator == summit;
      equal += spot.ModeString == mode;
      equal += spot.FormattedFrequencyString == band;
      equal += spot.UTCTime == points;
    }
    benchmark::DoNotOptimize(equal);
  }
  CountSpotsAndLists(state);
}
BENCHMARK(FilterFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
