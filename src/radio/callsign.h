// Base callsigns: a station's callsign without prefixes, suffixes and a second operator. Spots, alerts and
// the user's lists all go through here, so that they mean the same station.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

// Number of characters "0" to "9". A candidate without a digit is no callsign.
std::int32_t CountDigits(std::string_view text);

// The base callsign where it is a part of the text: when that is of capital letters and digits alone, with or
// without a "/P" behind them, as most callsigns are. Empty for any other text.
std::optional<std::string_view> PlainBaseCallsign(std::string_view text);

// The base callsign of the first station that the text names. When it names two, joined by "/", "&", "AND" or
// a blank, `secondCallsign` receives the base callsign of the other one, else it is emptied. Some results
// look odd ("DL/PA3XYZ" gives "DLA3XYZ", "KH6/K1A" gives "KH6"); lists and alerts share them.
std::string GetBaseCallsign(std::string_view text, std::string& secondCallsign);
std::string GetBaseCallsign(std::string_view text);

}  // namespace brelwin
