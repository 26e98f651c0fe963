// Reading a feed of 50,000 items into spots.
#include <benchmark/benchmark.h>

#include <QXmlStreamReader>

#include "base/encoding.h"
#include "made_spots.h"
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

// From the bytes of the page to the spots of the collection, activators learned included.
void ReadFeed(benchmark::State& state) {
  const RSSReadRequest request{.Url = {}, .PreviousNewestID = {}, .MaximumAgeInMinutes = OneDayInMinutes};
  const ReadingMoment moment{.UTCNow = Newest};
  const auto& feed = Feed();
  for (auto _ : state) {
    CallsignCollection knownActivators;
    SpotCollection spots;
    FeedReadResult result;
    ReadFeedText(TextFromBytes(feed), request, moment, knownActivators, spots, result);
    state.PauseTiming();
    if (spots.Count() != ItemCount) state.SkipWithError("not every item became a spot");
    spots.Clear();
    state.ResumeTiming();
  }
  CountBytes(state);
}
BENCHMARK(ReadFeed)->Unit(benchmark::kMillisecond);

// Qt's XML reader walking the same text and doing nothing else.
void ReadFeedFloor(benchmark::State& state) {
  const auto bytes = QByteArray::fromStdString(Feed());
  for (auto _ : state) {
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) reader.readNext();
    if (reader.hasError()) state.SkipWithError("the feed is not well-formed");
  }
  CountBytes(state);
}
BENCHMARK(ReadFeedFloor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
