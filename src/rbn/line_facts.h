// The facts of one skimmer line, found out as far as they are asked for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "alerts/alert_collection.h"
#include "platform/number_format.h"
#include "rbn/recent_spots.h"
#include "rbn/spot_line.h"
#include "rbn/spot_rules.h"
#include "spots/spot.h"

namespace brelwin {

// What lines are compared with.
struct LineSurroundings {
  const CallsignCollection& KnownActivators;
  const AlertCollection& Alerts;
  const RecentRBNSpots& RecentSpots;
  NumberFormat Numbers;
};

class LineFacts final : public SpotFacts {
 public:
  // Both must outlive it, and the line must not be read anew.
  LineFacts(const LineSurroundings& surroundings, SpotLine& line)
      : surroundings_(surroundings), line_(line) {}

  bool IsCQ() override;
  bool IsKnownActivator() override;
  bool IsMatchedToAlert() override { return Alert != nullptr; }
  bool IsRepeated() override;
  std::string_view StationBaseCallsign() override;
  std::string_view SpotterBaseCallsign() override;
  std::string_view ModeText() override { return line_.Field(SpotField::Mode); }
  std::string BandText() override;

  bool StationIsAnnounced() { return surroundings_.Alerts.IsAnnounced(StationBaseCallsign()); }
  const std::string& DuplicateKeyText();
  float FrequencyInMhz();

  // Set by whoever looks for alerts.
  AlertPointer Alert;           // the one that the spot matches
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

}  // namespace brelwin
