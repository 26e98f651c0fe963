#include "rbn/spot_rules.h"

#include "base/text.h"
#include "radio/callsign.h"
#include "radio/frequency.h"
#include "radio/numbers.h"

namespace brelwin {

bool LineFacts::IsCQ() {
  return EqualsIgnoringCase(line_.Field(SpotField::Type), "CQ");
}

bool LineFacts::IsKnownActivator() {
  return surroundings_.KnownActivators.Contains(StationBaseCallsign());
}

bool LineFacts::IsRepeated() {
  return surroundings_.RecentSpots.Contains(DuplicateKeyText());
}

std::string_view LineFacts::StationBaseCallsign() {
  if (station_) return *station_;
  const auto callsign = line_.Field(SpotField::Station);
  station_ = PlainBaseCallsign(callsign);
  if (!station_) {
    stationStorage_ = GetBaseCallsign(callsign);
    station_ = stationStorage_;
  }
  return *station_;
}

std::string_view LineFacts::SpotterBaseCallsign() {
  if (spotter_.empty()) spotter_ = GetBaseCallsign(SkimmerCallsign(line_.Field(SpotField::Skimmer)));
  return spotter_;
}

std::string LineFacts::BandText() {
  return SingleText(static_cast<float>(BandFromFrequency(FrequencyInMhz())));
}

const std::string& LineFacts::DuplicateKeyText() {
  if (duplicateKey_.empty()) duplicateKey_ = DuplicateKey(StationBaseCallsign(), FrequencyInMhz());
  return duplicateKey_;
}

float LineFacts::FrequencyInMhz() {
  if (!frequencyInMhz_) frequencyInMhz_ = MhzFromKHz(line_.Field(SpotField::Frequency));
  return *frequencyInMhz_;
}

SpotRules::SpotRules(const SpotFilter& filter)
    : anyType_(filter.IncludeAllSpotTypes),
      knownActivatorsOnly_(filter.FilterKnownActivators),
      matchedOnly_(filter.FilterSotawatchMatchingAlert),
      dropRepeated_(filter.FilterDuplicateSpots),
      stations_(filter.RBNStation),
      bands_(filter.RBNBand),
      modes_(filter.RBNMode),
      spotters_(filter.RBNSpotter),
      excludedSpotters_(filter.RBNSpotterExclude) {}

bool SpotRules::Keep(LineFacts& facts) const {
  return (anyType_ || facts.IsCQ()) && (!knownActivatorsOnly_ || facts.IsKnownActivator()) &&
         (!matchedOnly_ || facts.Alert != nullptr) && !(dropRepeated_ && facts.IsRepeated()) &&
         KeepByLists(facts);
}

bool SpotRules::KeepByLists(LineFacts& facts) const {
  const auto lets = [](const FilterList& list, auto&& value) {
    return list.MatchesEverything() || list.Matches(value());
  };
  return lets(stations_, [&] { return facts.StationBaseCallsign(); }) &&
         lets(bands_, [&] { return facts.BandText(); }) && lets(modes_, [&] { return facts.ModeText(); }) &&
         lets(spotters_, [&] { return facts.SpotterBaseCallsign(); }) &&
         (excludedSpotters_.MatchesEverything() || !excludedSpotters_.Matches(facts.SpotterBaseCallsign()));
}

}  // namespace brelwin
