// Which skimmer lines the user wants, and what has to be known of a line to tell.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "alerts/alert_collection.h"
#include "rbn/recent_spots.h"
#include "rbn/spot_line.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// What lines are compared with.
struct LineSurroundings {
  const CallsignCollection& KnownActivators;
  const AlertCollection& Alerts;
  const RecentRBNSpots& RecentSpots;
};

// The facts of one line. Each is found out when it is asked for, so that a line which an early rule drops
// costs nothing more.
class LineFacts {
 public:
  // Both must outlive it, and the line must not be read anew.
  LineFacts(const LineSurroundings& surroundings, SpotLine& line)
      : surroundings_(surroundings), line_(line) {}

  bool IsCQ();
  bool IsKnownActivator();
  bool IsRepeated();  // heard on the same frequency within the duplicate period
  bool StationIsAnnounced() { return surroundings_.Alerts.IsAnnounced(StationBaseCallsign()); }
  std::string_view StationBaseCallsign();
  std::string_view SpotterBaseCallsign();
  std::string_view ModeText() { return line_.Field(SpotField::Mode); }
  std::string BandText();  // lower edge in MHz
  const std::string& DuplicateKeyText();
  float FrequencyInMhz();

  // Set by whoever looks for alerts.
  AlertPointer Alert;           // the one that the spot matches, or null
  std::string WindowReference;  // see Spot

 private:
  const LineSurroundings& surroundings_;
  SpotLine& line_;
  std::optional<std::string_view> station_;
  std::string stationStorage_;
  std::string spotter_;
  std::string duplicateKey_;
  std::optional<float> frequencyInMhz_;
};

class SpotRules {
 public:
  // Reads the user's lists once, for many lines.
  explicit SpotRules(const SpotFilter& filter);

  // True when no rule drops the line. The facts that are dear to find out are asked for last.
  bool Keep(LineFacts& facts) const;

 private:
  bool KeepByLists(LineFacts& facts) const;

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
