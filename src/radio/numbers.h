// Numbers as text, whatever the locale: reading what users and feeds write, and writing single-precision
// values the way the lists and files have them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

// The text trimmed and without blanks. The decimal point is ".", whatever the user's locale has.
std::string NormalizeDecimalText(std::string_view text);

// The leading number of the normalized text; what follows it is ignored. A leading "+" is allowed. 0 when
// there is no number, when it does not fit, and for "inf" and "nan".
double ToDouble(std::string_view text);

// The value as a single-precision number; 0 when it does not fit.
float ToSingle(double value);

// The whole number of a box: the leading number of the text, rounded half to even and held within 32 bits.
std::int32_t WholeNumber(std::string_view text);

// The value with at most 7 significant digits, without exponent or trailing zeros: "145.525", "7", "0.135".
// "0" for a value that is no number.
std::string SingleText(float value);

// Whether that text has decimals.
bool SingleHasDecimals(float value);

// The 7-digit text in the pattern "######.#####": at most five decimals, rounded half away from zero, and no
// zero before the point: "145.525", "7.", ".135"; "." for 0.
std::string FormatSingle(float value);

// The value itself, not its 7-digit text, rounded half to even to 3 decimals.
double RoundedToThreeDecimals(float value);

// The rounded value as text, without trailing zeros: "14.062", "7", "0.135".
std::string RoundedToThreeDecimalsText(float value);

}  // namespace brelwin
