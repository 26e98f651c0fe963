// Spots for tests: a plain one to start from, and collections keyed by ID.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "spots/spot.h"

namespace brelwin::test {

// A CW spot of the station on the summit at 14.062 MHz.
inline Spot MakeSpot(std::string_view id, std::string_view station, std::string_view summit) {
  Spot spot;
  spot.ID = id;
  spot.Station = station;
  spot.stationBaseCallsign = station;
  spot.SummitDesignator = summit;
  spot.UTCTime = "10:05";
  spot.LocalDateAndTime = DateTimeFromCalendar({2026, 11, 24, 12, 5, 0});
  spot.FormattedFrequencyString = "14.062";
  spot.FrequencyInMhz = 14.062F;
  spot.BandInMhz = 14;
  spot.ModeString = "CW";
  spot.Spotter = "K6ABC";
  return spot;
}

inline SpotCollection Collect(std::initializer_list<Spot> spots) {
  SpotCollection collection;
  for (const auto& spot : spots) collection.Add(std::make_shared<Spot>(spot), spot.ID);
  return collection;
}

inline std::vector<std::string> Keys(const SpotCollection& spots) {
  std::vector<std::string> keys;
  for (const auto& entry : spots) keys.push_back(entry.Key);
  return keys;
}

}  // namespace brelwin::test
