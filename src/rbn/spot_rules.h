// Which skimmer spots the user wants: a decision from facts to a verdict with its reason.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "spots/filter_list.h"
#include "spots/spot_filter.h"

namespace brelwin {

enum class SpotVerdict : std::uint8_t {
  Kept,
  OtherType,
  UnknownActivator,
  NoMatchingAlert,
  Repeated,
  StationNotWanted,
  BandNotWanted,
  ModeNotWanted,
  SpotterNotWanted,
  SpotterExcluded,
};

// What is known of one spot. The rules ask for a fact only when they need it, so that it costs nothing to
// have one that is hard to find out.
class SpotFacts {
 public:
  SpotFacts() = default;
  SpotFacts(const SpotFacts&) = delete;
  SpotFacts& operator=(const SpotFacts&) = delete;
  virtual ~SpotFacts() = default;

  virtual bool IsCQ() = 0;
  virtual bool IsKnownActivator() = 0;
  virtual bool IsMatchedToAlert() = 0;
  virtual bool IsRepeated() = 0;  // heard on the same frequency within the duplicate period
  virtual std::string_view StationBaseCallsign() = 0;
  virtual std::string_view SpotterBaseCallsign() = 0;
  virtual std::string_view ModeText() = 0;
  virtual std::string BandText() = 0;  // lower edge in MHz
};

class SpotRules {
 public:
  // Reads the user's lists once, for many spots.
  explicit SpotRules(const SpotFilter& filter);

  // The first rule that drops the spot, or Kept.
  SpotVerdict Decide(SpotFacts& facts) const;

 private:
  SpotVerdict DecideByLists(SpotFacts& facts) const;

  bool anyType_;
  bool knownActivatorsOnly_;
  bool matchedOnly_;
  bool dropRepeated_;
  FilterList stations_;
  FilterList bands_;
  FilterList modes_;
  FilterList spotters_;
  FilterList excludedSpotters_;
};

}  // namespace brelwin
