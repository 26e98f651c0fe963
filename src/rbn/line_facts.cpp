#include "rbn/line_facts.h"

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
  return SingleText(static_cast<float>(BandFromFrequency(FrequencyInMhz(), surroundings_.Numbers)));
}

const std::string& LineFacts::DuplicateKeyText() {
  if (duplicateKey_.empty()) duplicateKey_ = DuplicateKey(StationBaseCallsign(), FrequencyInMhz());
  return duplicateKey_;
}

float LineFacts::FrequencyInMhz() {
  if (!frequencyInMhz_)
    frequencyInMhz_ = MhzFromKHz(line_.Field(SpotField::Frequency), surroundings_.Numbers);
  return *frequencyInMhz_;
}

}  // namespace brelwin
