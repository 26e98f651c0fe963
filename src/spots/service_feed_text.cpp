#include "spots/service_feed_text.h"

#include <algorithm>
#include <limits>

#include "radio/dates.h"
#include "spots/service_rows.h"
#include "spots/service_spot_row.h"

namespace brelwin {
namespace {

class RowReader {
 public:
  RowReader(std::int64_t maximumAgeInMinutes, const ReadingMoment& moment,
            CallsignCollection& knownActivators, std::vector<MadeSpots>& spots, FeedReadResult& result)
      : maximumAge_(maximumAgeInMinutes),
        utcNow_(moment.UTCNow),
        maker_(moment, knownActivators, result.LearnedActivators),
        spots_(spots),
        result_(result) {}

  void Read(std::string_view text) {
    ++rows_;
    const auto row = ReadServiceRow(text);
    if (!row) return NoteBrokenItem(result_, text);
    if (row->IsSentinel()) {
      foundSentinel_ = true;
      return;
    }
    const ServiceSpotRow spot(*row);
    const auto item = spot.Item(rows_);
    if (item.UTCDateTime && MinutesBetween(*item.UTCDateTime, utcNow_) > maximumAge_) return;
    if (auto made = maker_.MakeSpots(item); made.First != nullptr) return spots_.push_back(std::move(made));
    NoteSkippedItem(result_, text, item.ID);
  }

  bool SaysGone() const { return foundSentinel_ || rows_ == 0; }

 private:
  std::int64_t maximumAge_;
  DateTime utcNow_;
  SpotMaker maker_;
  std::vector<MadeSpots>& spots_;
  FeedReadResult& result_;
  std::int32_t rows_ = 0;
  bool foundSentinel_ = false;
};

// A spot without a time has just come.
DateTime TimeForOrder(const MadeSpots& made) {
  return made.First->UTCDateTime.value_or(DateTime{std::numeric_limits<std::int64_t>::max()});
}

FeedEnd EndOf(const ServiceRowScanner& scanner, const RowReader& reader) {
  if (!scanner.IsList()) return FeedEnd::NoFeed;
  if (!scanner.ReachedEnd() && !scanner.HasTooMany()) return FeedEnd::Cut;
  return reader.SaysGone() ? FeedEnd::Gone : FeedEnd::EndOfFeed;
}

}  // namespace

void ReadServiceSpots(std::string_view answer, std::int64_t maximumAgeInMinutes, const ReadingMoment& moment,
                      CallsignCollection& knownActivators, std::vector<MadeSpots>& spots,
                      FeedReadResult& result, const std::function<bool()>& goesOn) {
  result.End = FeedEnd::Cut;
  ServiceRowScanner scanner(answer);
  RowReader reader(maximumAgeInMinutes, moment, knownActivators, spots, result);
  while (const auto row = scanner.NextRow()) {
    if (!goesOn()) return;
    reader.Read(*row);
  }
  std::ranges::stable_sort(spots, std::ranges::greater(), TimeForOrder);
  result.End = EndOf(scanner, reader);
  result.HasMore = scanner.HasTooMany();
}

}  // namespace brelwin
