// Base callsigns: a station's callsign without prefixes, suffixes and a second operator. Spots, alerts and
// the user's lists all go through here, so that they mean the same station.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

// Every callsign that the text may stand for, in capitals, each once: its base callsign, and behind it the
// pieces between slashes and other signs that have the shape of a callsign (letter, digit, letter at the end:
// "PA3XYZ" in "DL/PA3XYZ/P"). For what must reach a station whatever it puts around its callsign.
std::vector<std::string> CallsignForms(std::string_view text);

// Whether both texts may stand for one station: a form of the one is a form of the other.
bool MayBeSameStation(std::string_view one, std::string_view other);

}  // namespace brelwin
