// Where a station is to be found: its frequency and mode, from what it says itself and what skimmers hear.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "board/activation_facts.h"

namespace brelwin {

struct Tuning {
  float FrequencyInMhz = 0;
  std::string Mode;
  DateTime Since;              // UTC, when it was found there
  bool IsByActivator = false;  // his own spot said so

  bool operator==(const Tuning&) const = default;
};

// Whether the station has moved: by more than 2 kHz, to another band, or to another mode. A mode that is not
// known is no other one.
bool IsQSY(const Tuning& from, const Tuning& to);

// The median of the skimmers of the last 3 minutes that heard it at `since` or later, each with its newest
// line; of those in the band of most of them. Empty without one.
std::optional<Tuning> TuningBySkimmers(const ActivationFacts& facts, DateTime since, DateTime now);

// Where the station is after the newest line of a skimmer or the newest report, given where it was. His own
// spot holds until two lines tell otherwise; spots of others count where no skimmer hears it.
std::optional<Tuning> TuningAfterHearing(const std::optional<Tuning>& before, const ActivationFacts& facts);
std::optional<Tuning> TuningAfterReport(const std::optional<Tuning>& before, const ActivationFacts& facts);

// The wavelength by which amateurs call the band of a frequency in MHz: "20m". Empty outside of their bands.
std::string_view BandName(float mhz);

// The same of a band by its lower edge in MHz, as BandFromFrequency has it.
std::string_view NameOfBand(double edge);

// Whether a band has that name, however it is written: "20m", "70CM".
bool IsNameOfBand(std::string_view word);

// As a rig shows it, to the kilohertz, whatever the locale: "14.060".
std::string KilohertzText(float mhz);

// "14.062 CW".
std::string TuningText(const Tuning& tuning);

}  // namespace brelwin
