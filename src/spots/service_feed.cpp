#include "spots/service_feed.h"

#include <algorithm>
#include <limits>
#include <string>

#include "base/text.h"
#include "core/trap.h"
#include "radio/dates.h"
#include "radio/numbers.h"
#include "spots/feed_scanner.h"
#include "spots/known_activators.h"
#include "spots/service_rows.h"

namespace brelwin {

namespace {

std::string Text(const ServiceRow& row, std::string_view name) {
  return DecodeFeedText(row.Text(name));
}

template <class Number>
Number Count(const ServiceRow& row, std::string_view name) {
  const auto number = WholeNumber(row.Text(name));
  return std::in_range<Number>(number) && number > 0 ? static_cast<Number>(number) : Number{};
}

// Before there was a type for it, those who left the air said so by a frequency on which nobody is.
SpotKind KindOf(const ServiceRow& row, std::string_view frequency, std::string_view mode) {
  constexpr double NobodysFrequency = 7;  // MHz
  const auto type = Trim(row.Text("type"));
  if (EqualsIgnoringCase(type, "TEST")) return SpotKind::Test;
  const bool isIdiom = ToDouble(frequency) == NobodysFrequency && EqualsIgnoringCase(mode, "Other");
  return isIdiom || EqualsIgnoringCase(type, "QRT") ? SpotKind::Gone : SpotKind::Normal;
}

}  // namespace

ServiceSpotRow::ServiceSpotRow(const ServiceRow& row)
    : id_(row.Text("id")),
      callsigns_(Text(row, "activatorCallsign")),
      frequency_(Text(row, "frequency")),
      mode_(Text(row, "mode")),
      comment_(Text(row, "comments")),
      spotter_(Text(row, "callsign")),
      operator_(Text(row, "activatorName")),
      time_(row.Time("timeStamp")),
      kind_(KindOf(row, frequency_, mode_)) {
  SetSummit(row);
  if (kind_ != SpotKind::Gone) return;
  frequency_.clear();  // leaving the air is a state, not a frequency
  mode_.clear();
}

void ServiceSpotRow::SetSummit(const ServiceRow& row) {
  summit_ = SummitReference(Text(row, "associationCode"), Text(row, "summitCode"));
  details_ = ReadSummitDetails(Text(row, "summitDetails"));
  if (const auto name = Text(row, "summitName"); !name.empty()) details_.Name = name;
  if (const auto meters = Count<std::int32_t>(row, "AltM")) details_.ElevationInMeters = meters;
  if (const auto points = Count<std::int16_t>(row, "points")) details_.Points = points;
}

FeedItem ServiceSpotRow::Item(std::int32_t order) const {
  return {id_,      SpotTitleOf(callsigns_, summit_, frequency_, mode_),
          comment_, spotter_,
          time_,    order,
          kind_,    operator_,
          details_};
}

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

namespace {

// The list of the last hours that hold so many minutes.
std::string ListPath(std::int64_t minutes) {
  const auto hours = std::clamp<std::int64_t>((minutes + 60) / 60, 1, 24);
  return "spots/-" + std::to_string(hours) + "/all/all";
}

void Add(const SpotPointer& spot, std::vector<SpotPointer>& spots) {
  if (spot != nullptr && spot->Kind != SpotKind::Test) spots.push_back(spot);
}

}  // namespace

std::vector<SpotPointer> ReadServiceBeside(Host& host, ServiceClient& client, std::string_view root,
                                           std::int64_t maximumAgeInMinutes,
                                           CallsignCollection& knownActivators) {
  FeedReadResult result;
  std::vector<SpotPointer> spots;
  LogErrors(host, "ReadServiceSpots", false, [&] {
    const auto answer = client.AskBeside(ServiceAddress(root, ListPath(maximumAgeInMinutes)));
    if (answer.Outcome != ServiceOutcome::Listed) return false;
    std::vector<MadeSpots> made;
    ReadServiceSpots(answer.Body, maximumAgeInMinutes, ReadingMomentOf(host), knownActivators, made, result);
    for (const auto& [first, second] : made) {
      Add(first, spots);
      Add(second, spots);
    }
    return true;
  });
  SaveLearnedActivators(host, result.LearnedActivators, MissingList::IsCreated);
  return spots;
}

}  // namespace brelwin
