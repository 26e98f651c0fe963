// One record of the country list, taken to pieces: the country's own line and its prefixes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "places/geo_point.h"

namespace brelwin {

// A prefix or whole callsign with what differs there from the country's own line.
struct CountryAlias {
  std::string Text;  // in capitals; never empty
  bool IsWholeCall = false;
  std::optional<GeoPoint> Place;
  std::string Continent;  // empty when it is the country's
};

struct CountryRecord {
  std::string Name;
  std::string Continent;
  GeoPoint Place;
  std::string Prefix;                     // the country's main one, in capitals
  std::vector<std::string_view> Aliases;  // as they stand in the record
};

// The record before its ";": eight values, each ended by ":" (name, two zones, continent, latitude, longitude
// with west positive, hours, main prefix), and the aliases, parted by commas. Empty when it is none.
std::optional<CountryRecord> ReadCountryRecord(std::string_view record);

// An alias: "DL", "=AA0O" for a whole callsign, and behind it, in any order, "(4)" and "[7]" for zones,
// "<33.5/97.2>" for the place, "{NA}" for the continent, "~8.0~" for the hours. Empty when it is none.
std::optional<CountryAlias> ReadCountryAlias(std::string_view alias);

}  // namespace brelwin
