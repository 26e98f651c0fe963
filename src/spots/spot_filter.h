// The user's filter and notification choices, and the comma lists that they match values against.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// Items are exact values or, ending in "*", prefixes; a "*" elsewhere in a prefix is dropped ("W*6*" is
// "W6"). ASCII letter case does not matter.
class FilterList {
 public:
  explicit FilterList(std::string_view list);

  // True for a blank list. A list of commas alone does restrict: it has no item that could match.
  bool MatchesEverything() const { return matchesEverything_; }

  // Whether the value is on the list. An empty value is on every list.
  bool Matches(std::string_view value) const;

 private:
  struct Item {
    std::string Text;  // upper case
    bool IsPrefix;

    bool Matches(std::string_view value) const;
  };

  std::vector<Item> items_;
  bool matchesEverything_;
};

struct SpotFilter {
  std::string Station;
  std::string SummitReference;
  std::string Band;
  std::string mode;
  std::string Spotter;
  std::string Points;
  bool NoSpotSourceFiltering = false;
  bool AlertSpotSourceSotawatch = false;
  bool AlertSpotSourceRBNMatched = false;
  bool AlertSpotSourceRBNUnmatched = false;
  bool ShowWindowOnAlert = false;
  bool FilterAlertSounds = false;
  std::string AlertSound;
  std::int16_t PlaySoundWhen = 0;
  bool FilterSpotDisplay = false;
  bool FilterLog1 = false;
  bool FilterLog2 = false;
  std::string RBNStation;
  std::string RBNBand;
  std::string RBNMode;
  std::string RBNSpotter;
  std::string RBNSpotterExclude;
  bool FilterKnownActivators = false;
  bool FilterSotawatchMatchingAlert = false;
  bool FilterDuplicateSpots = false;
  double DuplicateSpotFilteringPeriod = 0;     // minutes
  std::int32_t MaxMinutesBeforeAlertTime = 0;  // minutes
  std::int32_t MaxMinutesAfterAlertTime = 0;   // minutes
  bool IncludeAllSpotTypes = false;
  SpotCollection colFilteredSpots;  // the last filtered subset

  // Fills `filtered` with the spots that pass the lists and, unless NoSpotSourceFiltering, the source rule,
  // in their order and under their keys. Returns -1 when done; 0, with an empty result, for an empty input
  // and for a run-time error, which is logged.
  std::int32_t GetFilteredSpots(Host& host, const SpotCollection& spots, SpotCollection& filtered) const;
};

// How many of the spots only the list of points lets fail, and only because their points are not known.
std::size_t CountFailingForUnknownPoints(const SpotFilter& filter, const SpotCollection& spots);

// Whether the value is on the comma list: an item is an exact value or, ending in "*", a prefix. Letter case
// does not matter. An empty list matches everything, and so does an empty value: a spot that lacks the field
// is never filtered out by it.
bool MatchesFilterList(std::string_view list, std::string_view value);

}  // namespace brelwin
