// Where a station is, as far as its callsign tells: the country list that contest programs share (cty.dat).
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/record_faults.h"
#include "places/geo_point.h"

namespace brelwin {

struct Country {
  std::string Name;       // "Portugal"
  std::string Continent;  // "EU", "NA", "SA", "AF", "AS", "OC" or "AN"
  GeoPoint Place;         // the middle of the country, or of the part that the prefix belongs to
};

class CountryList {
 public:
  // Reads the file. Records that are broken are left out and counted; with no record at all every callsign
  // is unknown.
  explicit CountryList(std::string_view bytes);

  std::size_t PrefixCount() const { return prefixes_.size() + calls_.size(); }
  const RecordFaults& Faults() const { return faults_; }

  // The country of a callsign, with a skimmer's "-#" or "-2" behind it or without: by the whole callsign
  // where the list names it, by the part that says where a portable station is ("EA8/G4ABC", "G4ABC/EA8"), by
  // a changed digit ("W1AW/7"), else by the longest prefix. Empty for a callsign that is unknown, or that
  // says no place ("/MM" at sea, "/AM" in the air). It stays valid with the list.
  const Country* Find(std::string_view callsign) const;

 private:
  using Index = std::map<std::string, std::size_t, std::less<>>;

  void ReadRecord(std::string_view record, std::size_t line);
  void AddAlias(std::string_view alias, std::size_t country, std::size_t line);
  const Country* FindCall(std::string_view call) const;
  const Country* FindPrefix(std::string_view call) const;

  std::vector<Country> countries_;
  Index prefixes_;
  Index calls_;  // whole callsigns that belong elsewhere than their prefix
  RecordFaults faults_;
};

}  // namespace brelwin
