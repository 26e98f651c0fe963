// The text of a list of 10,000 spots.
#include <benchmark/benchmark.h>

#include "made_spots.h"
#include "spots/spot_text.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t LineCount = 10'000;

std::string TextOf(const SpotCollection& spots) {
  std::string text;
  text.reserve(spots.Count() * (SpotLineWidth + LineEnd.size()));
  for (const auto& entry : spots) {
    AppendFixedWidthLine(text, *entry.Item);
    text.append(LineEnd);
  }
  return text;
}

void ListText(benchmark::State& state) {
  const auto spots = MakeSpots(0, LineCount);
  for (auto _ : state) benchmark::DoNotOptimize(TextOf(spots));
}
BENCHMARK(ListText)->Unit(benchmark::kMillisecond);

void Put(char*& place, std::string_view cell, std::size_t shown, std::size_t width) {
  cell.substr(0, shown).copy(place, shown);
  place += width;
}

void PutRight(char*& place, std::string_view cell, std::size_t width) {
  place += width;
  cell.copy(place - cell.size(), cell.size());
}

std::string PlainTextOf(const SpotCollection& spots) {
  std::string text(spots.Count() * (SpotLineWidth + LineEnd.size()), ' ');
  auto* place = text.data();
  for (const auto& [key, spot] : spots) {
    Put(place, spot->UTCTime, 7, 7);
    Put(place, spot->Station, 12, 12);
    Put(place, spot->SummitDesignator, 12, 12);
    Put(place, spot->SummitName, 30, 32);
    Put(place, spot->SummitPoints == 0 ? "" : std::to_string(spot->SummitPoints), 3, 3);
    PutRight(place, spot->FormattedFrequencyString, 11);
    Put(place, spot->ModeString, 6, 6);
    Put(place, spot->OperatorName, 13, 14);
    Put(place, spot->Comment, 60, 61);
    Put(place, "[" + spot->Spotter + "]", 12, 12);
    Put(place, LineEnd, LineEnd.size(), LineEnd.size());
  }
  return text;
}

// The same text by code for spots whose columns are plain and fit.
void ListTextFloor(benchmark::State& state) {
  const auto spots = MakeSpots(0, LineCount);
  if (PlainTextOf(spots) != TextOf(spots)) state.SkipWithError("the floor makes another text");
  for (auto _ : state) benchmark::DoNotOptimize(PlainTextOf(spots));
}
BENCHMARK(ListTextFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
