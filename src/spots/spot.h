// One report that a station is on the air, from any source: a plain record that readers build field by field.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "base/keyed_collection.h"
#include "platform/clock.h"

namespace brelwin {

// Of a service that says so: Gone is a station that has left the air ("QRT"), Test a spot that is only shown.
enum class SpotKind : std::uint8_t { Normal, Gone, Test };

struct Spot {  // NOLINT(clang-analyzer-optin.performance.Padding): users know this order of the fields
  float BandInMhz = 0;  // lower edge of the amateur band
  std::string Comment;
  std::string FormattedFrequencyString;  // in MHz, "######.#####"
  float FrequencyInMhz = 0;
  std::string FrequencyString;  // as the feed gave it
  bool HiddenFromDisplay = false;
  std::string ID;  // the reader's identity of the spot, key of every list
  bool IsKnownActivator = false;
  bool IsMatchedToAlert = false;
  bool IsAPRSSpot = false;
  bool IsEdited = false;  // it replaces what its spotter said before
  bool IsRBNSpot = false;
  bool IsSMSSpot = false;
  bool IsSelfSpot = false;
  std::optional<DateTime> LocalDateAndTime;
  SpotKind Kind = SpotKind::Normal;
  std::string LogLineFollowing;
  std::string LogLinePreceeding;
  std::int16_t mode = 0;  // code of ModeString
  std::string ModeString;
  std::string OperatorName;
  std::int32_t OrderReceived = 0;       // from 1 on each read
  std::int32_t SignalToNoiseRatio = 0;  // dB
  std::int32_t Speed = 0;               // words per minute
  std::string Spot;                     // the raw spot text as received
  std::string SpotKey;                  // duplicate key; of a derived spot the ID of the first one
  std::string Spotter;
  std::string SpotterBaseCallsign;
  bool SpotterIsTrustedSpotter = false;
  std::string SpotTypeString;
  std::string Station;
  std::string stationBaseCallsign;
  std::string SummitDescription;
  std::string SummitDesignator;  // association/region-number
  std::int32_t SummitElevationInFeet = 0;
  std::int32_t SummitElevationInMeters = 0;
  std::string SummitName;
  std::int16_t SummitPoints = 0;
  std::optional<DateTime> UTCDateTime;
  std::string UTCTime;                // "HH:MM"
  std::string WindowReference;        // in the alert's comment: only the "S-" in it makes the spot match
  std::optional<Instant> TimeOfSpot;  // UTCDateTime on the clock that does not jump; never after the reading

  // Copies all fields of the source; a null pointer changes nothing.
  void CopyMyPropertiesFromThisSpot(const struct Spot* source);
};

// A spot may sit in several collections at once: the list, the recent ones, a filtered subset.
using SpotPointer = std::shared_ptr<Spot>;
using SpotCollection = KeyedCollection<SpotPointer>;

// Base callsigns keyed by themselves: known activators, trusted spotters, excluded activators.
using CallsignCollection = KeyedCollection<std::string>;

}  // namespace brelwin
