// What holds of radio texts whatever they are. The fuzzers try it with any bytes, the tests with seeded ones.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin::test {

// A base callsign does not depend on letter case or on whether the second one is asked for, and a second
// callsign has a digit.
inline bool CallsignIgnoresCase(std::string_view text) {
  std::string second;
  std::string secondOfVariant;
  const auto base = GetBaseCallsign(text, second);
  const auto variant = GetBaseCallsign(LowerCase(text), secondOfVariant);
  return base == variant && second == secondOfVariant && base == GetBaseCallsign(text) &&
         (second.empty() || CountDigits(second) > 0);
}

// What is read as a date reads back from each of its texts.
inline bool DateTextReadsBack(std::string_view text) {
  const auto time = ReadDateTime(text);
  if (!time) return true;
  const auto isWrittenAs = [&](const std::string& written) { return ReadDateTime(written) == time; };
  return isWrittenAs(DateTimeText(*time)) && isWrittenAs(MonthFirstText(*time)) &&
         isWrittenAs(DateTimeText(*time) + " +0000");
}

// The text of a single reads back as a single with the same text, and normalizing it changes nothing.
inline bool NumberTextReadsBack(std::uint32_t bits) {
  const auto value = std::bit_cast<float>(bits);
  const auto text = SingleText(value);
  if (std::fabs(value) < 1e-30F || std::fabs(value) > 1e30F) return !text.empty();
  return !std::isfinite(value) ||
         (SingleText(ToSingle(ToDouble(text))) == text && NormalizeDecimalText(text) == text);
}

// Whatever the text, a box's number is within its bounds and reading it twice makes no difference.
inline bool NumberIsReadFromAnyText(std::string_view text) {
  const auto normalized = NormalizeDecimalText(text);
  return std::isfinite(ToDouble(text)) && ToDouble(normalized) == ToDouble(text) &&
         WholeNumber(normalized) == WholeNumber(text);
}

}  // namespace brelwin::test
