#include "spots/service_spot_row.h"

#include "base/text.h"
#include "radio/numbers.h"
#include "spots/feed_text.h"

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

}  // namespace brelwin
