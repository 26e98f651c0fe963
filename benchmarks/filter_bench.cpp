// Filtering 100,000 spots by six lists of ten entries.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>

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

template <class Values>
bool StartsWithOne(std::string_view text, const Values& values) {
  return std::ranges::any_of(values, [&](std::string_view value) { return text.starts_with(value); });
}

constexpr std::array Bands = {3.5F, 7.0F, 10.0F, 14.0F, 18.0F, 21.0F, 28.0F, 144.0F, 420.0F, 50.0F};

bool IsOnSixLists(const Spot& spot) {
  return StartsWithOne(spot.Station, Prefixes) && StartsWithOne(spot.Spotter, Prefixes) &&
         StartsWithOne(spot.SummitDesignator, Regions) &&
         std::ranges::find(Modes, spot.ModeString) != Modes.end() &&
         std::ranges::find(Bands, spot.BandInMhz) != Bands.end() && spot.SummitPoints >= 1 &&
         spot.SummitPoints <= 10;
}

SpotCollection FilterPlainly(const SpotCollection& spots) {
  SpotCollection filtered;
  filtered.Reserve(spots.Count());
  for (const auto& [key, spot] : spots) {
    if (IsOnSixLists(*spot)) filtered.Add(spot, key);
  }
  return filtered;
}

// The same collection, by the same lists written into the code.
void FilterFloor(benchmark::State& state) {
  const auto& spots = Spots();
  if (!AreSameSpots(FilterPlainly(spots), spots)) state.SkipWithError("not all spots passed");
  for (auto _ : state) {
    auto filtered = FilterPlainly(spots);
    state.PauseTiming();
    filtered.Clear();
    state.ResumeTiming();
  }
  CountSpotsAndLists(state);
}
BENCHMARK(FilterFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
