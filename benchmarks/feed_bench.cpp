// Reading a feed of 50,000 items into spots.
#include <benchmark/benchmark.h>

#include "base/encoding.h"
#include "made_spots.h"
#include "plain_feed_reader.h"
#include "spots/rss_feed.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t ItemCount = 50'000;
constexpr std::int64_t OneDayInMinutes = 1440;

const DateTime Newest = *DateTimeFromCalendar({2026, 11, 24, 12, 0, 0});

const std::string& Feed() {
  static const auto feed = MakeFeed(ItemCount, Newest);
  return feed;
}

void CountBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Feed().size()));
}

const ReadingMoment Moment = {.UTCNow = Newest};

// From the bytes of the page to the spots of the collection, activators learned included.
void ReadFeed(benchmark::State& state) {
  const RSSReadRequest request{.Url = {}, .PreviousNewestID = {}, .MaximumAgeInMinutes = OneDayInMinutes};
  const auto& feed = Feed();
  for (auto _ : state) {
    CallsignCollection knownActivators;
    SpotCollection spots;
    FeedReadResult result;
    ReadFeedText(TextFromBytes(feed), request, Moment, knownActivators, spots, result);
    state.PauseTiming();
    if (spots.Count() != ItemCount) state.SkipWithError("not every item became a spot");
    spots.Clear();
    state.ResumeTiming();
  }
  CountBytes(state);
}
BENCHMARK(ReadFeed)->Unit(benchmark::kMillisecond);

bool AreOfFeed(const SpotCollection& spots) {
  const RSSReadRequest request{.Url = {}, .PreviousNewestID = {}, .MaximumAgeInMinutes = OneDayInMinutes};
  CallsignCollection known;
  SpotCollection expected;
  FeedReadResult result;
  ReadFeedText(Feed(), request, Moment, known, expected, result);
  return AreSameSpots(spots, expected);
}

SpotCollection ReadFeedPlainly() {
  CallsignCollection knownActivators;
  SpotCollection spots;
  ReadMadeFeed(Feed(), Moment, knownActivators, spots);
  return spots;
}

// The same spots by code that knows this one feed.
void ReadFeedFloor(benchmark::State& state) {
  if (!AreOfFeed(ReadFeedPlainly())) state.SkipWithError("the floor makes other spots");
  for (auto _ : state) {
    auto spots = ReadFeedPlainly();
    state.PauseTiming();
    spots.Clear();
    state.ResumeTiming();
  }
  CountBytes(state);
}
BENCHMARK(ReadFeedFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
