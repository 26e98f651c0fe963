// What must hold of files with places, whatever is in them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "places/country_list.h"
#include "places/summits_list.h"

namespace brelwin::test {

inline bool CountriesAreOnEarth(std::string_view file, std::string_view callsign) {
  const CountryList list(file);
  const auto* country = list.Find(callsign);
  return country == nullptr ||
         (std::abs(country->Place.Latitude) <= 90 && std::abs(country->Place.Longitude) <= 180);
}

inline std::vector<std::string> SummitsOf(std::string_view file) {
  std::vector<std::string> rows;
  ReadSummitsList(file, [&](const SummitRow& row) {
    rows.push_back(std::string(row.Code) + "," + std::string(row.Name));
  });
  return rows;
}

// A list that is cut has the summits of the whole one, but for the line of the cut.
inline bool CutListGivesItsFirstSummits(std::string_view file, std::size_t cut) {
  const auto whole = SummitsOf(file);
  const auto begin = file.substr(0, cut);
  const auto first = SummitsOf(begin.substr(0, begin.rfind('\n') + 1));
  return first.size() <= whole.size() && std::equal(first.begin(), first.end(), whole.begin());
}

}  // namespace brelwin::test
