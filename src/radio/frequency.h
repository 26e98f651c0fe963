// Frequencies: their bands, their text and the key by which spots count as the same.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// Lower edge, in MHz, of the amateur band of a frequency in MHz. The bands from 5 to 27 MHz and 70 MHz are
// the whole MHz themselves (14 for 14.285). A frequency without decimals is taken for one of the band 0.135:
// lists and filters rely on it. The edges of the other bands follow the band plans of the amateur service.
double BandFromFrequency(float mhz);

// Reads a frequency in kHz, or in MHz, into `mhz` and gives its text in MHz, "######.#####". No text at all,
// or a number that does not fit, gives 0 and empty text.
std::string FormatFrequencyKHz(std::string_view text, float& mhz);
std::string FormatFrequencyMHz(std::string_view text, float& mhz);

// The same frequency in MHz without its text.
float MhzFromKHz(std::string_view text);

// The station's base callsign followed directly by the frequency rounded to 3 decimals: "G4ABC14.062".
std::string DuplicateKey(std::string_view stationBaseCallsign, float mhz);

double MetersToFeet(double meters);

}  // namespace brelwin
