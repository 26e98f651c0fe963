// Base callsigns: a station's callsign without prefixes, suffixes and a second operator. Spots, alerts and
// the user's lists all go through here, so that they mean the same station.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

// Number of characters "0" to "9". A candidate without a digit is no callsign.
std::int32_t CountDigits(std::string_view text);

// Whether the text is of capital letters and digits alone, as most callsigns are: it is then its own base
// callsign.
bool IsPlainCallsign(std::string_view text);

// The base callsign of the first station that the text names. When it names two, joined by "/", "&", "AND" or
// a blank, `secondCallsign` receives the base callsign of the other one, else it is emptied. Some results
// look odd ("DL/PA3XYZ" gives "DLA3XYZ", "KH6/K1A" gives "KH6"); lists and alerts share them.
std::string GetBaseCallsign(std::string_view text, std::string& secondCallsign);
std::string GetBaseCallsign(std::string_view text);

}  // namespace brelwin
