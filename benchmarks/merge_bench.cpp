// Merging a batch of 100 new spots into lists of different lengths, which stay that long.
#include <benchmark/benchmark.h>

#include <list>

#include "made_spots.h"
#include "spots/spot_collections.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t BatchSize = 100;

// Enough batches that one has left the list again before it comes once more.
std::vector<SpotCollection> BatchesFor(std::size_t listLength) {
  std::vector<SpotCollection> batches;
  for (std::size_t first = 0; first <= listLength + BatchSize; first += BatchSize)
    batches.push_back(MakeSpots(first, BatchSize));
  return batches;
}

void Merge(benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  const auto batches = BatchesFor(length);
  SpotCollection list;
  for (const auto& batch : batches) MergeInFront(batch, list);
  TrimCollection(static_cast<std::int32_t>(length), list);
  std::size_t next = 0;
  for (auto _ : state) {
    MergeInFront(batches[next], list);
    TrimCollection(static_cast<std::int32_t>(length), list);
    next = (next + 1) % batches.size();
  }
  if (list.Count() != length) state.SkipWithError("the list has not kept its length");
}
BENCHMARK(Merge)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

// Putting as many spots in front of a plain list and taking as many off its end.
void MergeFloor(benchmark::State& state) {
  const auto batch = MakeSpots(0, BatchSize);
  std::list<SpotPointer> list(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    for (const auto& entry : batch) {
      list.push_front(entry.Item);
      list.pop_back();
    }
  }
}
BENCHMARK(MergeFloor)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brelwin::benchmarks
