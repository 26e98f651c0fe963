// Which part of a callsign with slashes says where the station is.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// The callsign or prefix that tells the country, in capitals, without a skimmer's "-#" or "-2" behind it:
// "EA8" of "EA8/G4ABC" and "G4ABC/EA8", "W7AW" of "W1AW/7", "G4ABC" of "G4ABC/P". Empty for a station at sea
// or in the air ("/MM", "/AM").
std::string CallThatTellsCountry(std::string_view callsign);

// The whole callsign in capitals, without what a skimmer has behind it.
std::string CallWithoutSkimmerMark(std::string_view callsign);

}  // namespace brelwin
