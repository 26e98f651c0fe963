// The text of a list of 10,000 spots.
#include <benchmark/benchmark.h>

#include <cstring>

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

// Copying lines that are ready.
void ListTextFloor(benchmark::State& state) {
  const auto text = TextOf(MakeSpots(0, LineCount));
  const auto lines = SplitLines(text);
  for (auto _ : state) {
    std::string copy;
    copy.reserve(text.size());
    for (const auto line : lines) copy.append(line).append(LineEnd);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(ListTextFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
