// Merging a batch of 100 new spots into lists of different lengths, which stay that long.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <list>
#include <unordered_map>

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

// The same list out of the containers of the language.
class PlainList {
 public:
  void MergeInFront(const SpotCollection& batch, std::size_t length) {
    for (auto entry = batch.end(); entry != batch.begin();) {
      --entry;
      AddInFront(entry->Item);
    }
    while (spots_.size() > length) {
      places_.erase(spots_.back()->ID);
      spots_.pop_back();
    }
  }

  const std::list<SpotPointer>& Spots() const { return spots_; }

 private:
  void AddInFront(const SpotPointer& spot) {
    const auto [place, isNew] = places_.try_emplace(spot->ID);
    if (!isNew) spots_.erase(place->second);
    spots_.push_front(spot);
    place->second = spots_.begin();
  }

  std::list<SpotPointer> spots_;
  std::unordered_map<std::string, std::list<SpotPointer>::iterator> places_;
};

bool IsSameList(const PlainList& plain, const SpotCollection& list) {
  return std::equal(plain.Spots().begin(), plain.Spots().end(), list.begin(), list.end(),
                    [](const SpotPointer& spot, const auto& entry) { return spot->ID == entry.Item->ID; });
}

void MergeFloor(benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  const auto batches = BatchesFor(length);
  PlainList plain;
  SpotCollection list;
  for (const auto& batch : batches) {
    plain.MergeInFront(batch, length);
    MergeInFront(batch, list);
    TrimCollection(static_cast<std::int32_t>(length), list);
  }
  if (!IsSameList(plain, list)) state.SkipWithError("the floor makes another list");
  std::size_t next = 0;
  for (auto _ : state) {
    plain.MergeInFront(batches[next], length);
    next = (next + 1) % batches.size();
  }
}
BENCHMARK(MergeFloor)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brelwin::benchmarks
