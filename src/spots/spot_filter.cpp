#include "spots/spot_filter.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "radio/callsign.h"
#include "radio/numbers.h"

namespace brelwin {

namespace {

bool IsUpperCaseOf(char upper, char c) {
  return c == upper || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == upper);
}

}  // namespace

FilterList::FilterList(std::string_view list) : matchesEverything_(Trim(list).empty()) {
  for (const auto piece : Split(list, ",")) {
    const auto item = Trim(piece);
    if (item.empty()) continue;
    const bool isPrefix = item.ends_with('*');
    const auto text = isPrefix ? Replace(item, "*", "") : std::string(item);
    items_.push_back({UpperCase(Trim(text)), isPrefix});
  }
}

bool FilterList::Item::Matches(std::string_view value) const {
  if (value.size() < Text.size() || (!IsPrefix && value.size() > Text.size())) return false;
  return std::equal(Text.begin(), Text.end(), value.begin(), IsUpperCaseOf);
}

bool FilterList::Matches(std::string_view value) const {
  const auto trimmed = Trim(value);
  if (matchesEverything_ || trimmed.empty()) return true;
  return std::any_of(items_.begin(), items_.end(), [&](const Item& item) { return item.Matches(trimmed); });
}

namespace {

constexpr std::int16_t UnknownPoints = 0;  // every summit has some

// The six lists of a filter, read once for all spots.
struct Lists {
  explicit Lists(const SpotFilter& filter)
      : Station(filter.Station),
        SummitReference(filter.SummitReference),
        Band(filter.Band),
        Mode(filter.mode),
        Spotter(filter.Spotter),
        Points(filter.Points) {}

  FilterList Station;
  FilterList SummitReference;
  FilterList Band;
  FilterList Mode;
  FilterList Spotter;
  FilterList Points;
};

bool IsStationOn(const FilterList& list, std::string_view callsign) {
  return list.MatchesEverything() || list.Matches(GetBaseCallsign(callsign));
}

bool IsBandOn(const FilterList& list, float bandInMhz) {
  return list.MatchesEverything() || list.Matches(SingleText(bandInMhz));
}

bool ArePointsOn(const FilterList& list, std::int16_t points) {
  return list.MatchesEverything() || list.Matches(std::to_string(points));
}

// Who has left the air is on no band and in no mode: no list of them keeps that from the user.
bool PassesBandAndMode(const Lists& lists, const Spot& spot) {
  return spot.Kind == SpotKind::Gone ||
         (lists.Mode.Matches(spot.ModeString) && IsBandOn(lists.Band, spot.BandInMhz));
}

// The lists that need no callsign to be taken apart come first: most spots that fail do so there.
bool PassesLists(const Lists& lists, const Spot& spot) {
  return lists.SummitReference.Matches(spot.SummitDesignator) && PassesBandAndMode(lists, spot) &&
         ArePointsOn(lists.Points, spot.SummitPoints) && IsStationOn(lists.Station, spot.Station) &&
         IsStationOn(lists.Spotter, spot.Spotter);
}

bool PassesSourceRule(const SpotFilter& filter, const Spot& spot) {
  if (filter.NoSpotSourceFiltering) return true;
  if (!spot.IsRBNSpot) return filter.AlertSpotSourceSotawatch;
  return spot.IsMatchedToAlert ? filter.AlertSpotSourceRBNMatched : filter.AlertSpotSourceRBNUnmatched;
}

SpotCollection SpotsThatPass(const SpotFilter& filter, const SpotCollection& spots) {
  const Lists lists(filter);
  SpotCollection passed;
  passed.Reserve(spots.Count());
  for (const auto& [key, spot] : spots) {
    if (PassesLists(lists, *spot) && PassesSourceRule(filter, *spot)) passed.Add(spot, key);
  }
  return passed;
}

}  // namespace

std::int32_t SpotFilter::GetFilteredSpots(Host& host, const SpotCollection& spots,
                                          SpotCollection& filtered) const {
  if (&spots != &filtered) filtered.Clear();
  if (spots.Empty()) return StatusNothingDone;
  return LogErrors(host, "GetFilteredSpots", 0, [&] {
    filtered = SpotsThatPass(*this, spots);
    return StatusDone;
  });
}

std::size_t CountFailingForUnknownPoints(const SpotFilter& filter, const SpotCollection& spots) {
  Lists others(filter);
  const auto points = std::exchange(others.Points, FilterList(""));
  if (ArePointsOn(points, UnknownPoints)) return 0;
  const auto fails = [&](const auto& entry) {
    return entry.Item->SummitPoints == UnknownPoints && PassesLists(others, *entry.Item);
  };
  return static_cast<std::size_t>(std::ranges::count_if(spots, fails));
}

bool MatchesFilterList(std::string_view list, std::string_view value) {
  return FilterList(list).Matches(value);
}

}  // namespace brelwin
