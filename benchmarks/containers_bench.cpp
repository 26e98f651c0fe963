// Our containers against the standard ones, at the sizes that occur: a day's announcements, a list of spots,
// a long day of them. Keys are callsigns; of those looked for one in twenty is held, as in a skimmers'
// stream.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/bloom_filter.h"
#include "base/key_index.h"
#include "base/text.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t LookedForCount = 20'000;
constexpr std::size_t OneIn = 20;

struct HashOfKey {
  std::size_t operator()(std::string_view key) const { return HashIgnoringCase(key); }
};

struct SameKey {
  bool operator()(std::string_view left, std::string_view right) const {
    return EqualsIgnoringCase(left, right);
  }
};

using StandardSet = std::unordered_set<std::string, HashOfKey, SameKey>;
using StandardMap = std::unordered_map<std::string, std::uint32_t, HashOfKey, SameKey>;

struct Record {
  std::string Key;
};
using Records = std::deque<Record>;

std::string Callsign(std::size_t number) {
  return "DL" + std::to_string(number % 10) + std::to_string(number * 2'654'435'761 % 1'000'000'007);
}

Records MakeRecords(std::size_t count) {
  Records records(1);
  for (std::size_t i = 0; i < count; ++i) records.push_back({Callsign(i)});
  return records;
}

std::vector<std::string> LookedFor(std::size_t count) {
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < LookedForCount; ++i)
    keys.push_back(Callsign(i % OneIn == 0 ? i * 7 % count : count + i));
  return keys;
}

// Looks for all the keys and counts what is found, which has to be one in twenty.
template <class Has>
void Look(benchmark::State& state, const Has& has) {
  const auto keys = LookedFor(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::size_t found = 0;
    for (const auto& key : keys) found += has(key) ? 1U : 0U;
    if (found != LookedForCount / OneIn) state.SkipWithError("found others than were put in");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(LookedForCount));
}

void FindByKeyIndex(benchmark::State& state) {
  const auto records = MakeRecords(static_cast<std::size_t>(state.range(0)));
  KeyIndex<Records> index;
  for (std::uint32_t number = 1; number < records.size(); ++number) index.Add(records, number);
  Look(state, [&](const std::string& key) { return index.Find(records, key) != 0; });
}

void FindByStandardMap(benchmark::State& state) {
  const auto records = MakeRecords(static_cast<std::size_t>(state.range(0)));
  StandardMap index;
  for (std::uint32_t number = 1; number < records.size(); ++number)
    index.emplace(records[number].Key, number);
  Look(state, [&](const std::string& key) { return index.find(key) != index.end(); });
}

void AddToKeyIndex(benchmark::State& state) {
  const auto records = MakeRecords(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    KeyIndex<Records> index;
    for (std::uint32_t number = 1; number < records.size(); ++number) index.Add(records, number);
    benchmark::DoNotOptimize(index);
  }
}

void AddToStandardMap(benchmark::State& state) {
  const auto records = MakeRecords(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    StandardMap index;
    for (std::uint32_t number = 1; number < records.size(); ++number)
      index.emplace(records[number].Key, number);
    benchmark::DoNotOptimize(index);
  }
}

StandardSet MakeSet(std::size_t count) {
  StandardSet set;
  for (std::size_t i = 0; i < count; ++i) set.insert(Callsign(i));
  return set;
}

void FindBehindBloomFilter(benchmark::State& state) {
  const auto set = MakeSet(static_cast<std::size_t>(state.range(0)));
  BloomFilter filter;
  for (const auto& key : set) filter.Add(key);
  Look(state, [&](const std::string& key) { return filter.MayContain(key) && set.contains(key); });
}

void FindInStandardSet(benchmark::State& state) {
  const auto set = MakeSet(static_cast<std::size_t>(state.range(0)));
  Look(state, [&](const std::string& key) { return set.contains(key); });
}

void AtTheSizesThatOccur(benchmark::internal::Benchmark* benchmark) {
  for (const auto count : {200, 2'000, 10'000, 100'000}) benchmark->Arg(count);
  benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(FindByKeyIndex)->Apply(AtTheSizesThatOccur);
BENCHMARK(FindByStandardMap)->Apply(AtTheSizesThatOccur);
BENCHMARK(AddToKeyIndex)->Apply(AtTheSizesThatOccur);
BENCHMARK(AddToStandardMap)->Apply(AtTheSizesThatOccur);
BENCHMARK(FindBehindBloomFilter)->Apply(AtTheSizesThatOccur);
BENCHMARK(FindInStandardSet)->Apply(AtTheSizesThatOccur);

}  // namespace
}  // namespace brelwin::benchmarks
