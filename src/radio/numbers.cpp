#include "radio/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/text.h"

namespace brelwin {
namespace {

constexpr int SignificantDigits = 7;
constexpr double LowestTooLong = 1e7;
constexpr int PatternDecimals = 5;
constexpr double LongestInThousandths = 1e12;  // no single-precision number has decimals beyond

// The digits of a value and where its point stands: 0.00135 is "135" with the point at -2.
struct Decimal {
  std::string Digits;  // without leading and trailing zeros; empty for 0
  int Point = 0;       // number of digits before the point; negative when zeros follow it
  bool Negative = false;
};

int DigitsBeforePoint(double magnitude) {
  int digits = 0;
  double power = 1;
  while (magnitude >= power) {
    ++digits;
    power *= 10;
  }
  power = 0.1;
  while (magnitude < power) {
    --digits;
    power /= 10;
  }
  return digits;
}

double TimesPowerOfTen(double value, int exponent) {
  double power = 1;
  for (int i = std::abs(exponent); i > 0; --i) power *= 10;
  return exponent >= 0 ? value * power : value / power;
}

// Exact but for extreme values: a 24-bit number times a power of ten up to 10^12 fits into 53 bits.
Decimal DecimalOf(float value) {
  if (!std::isfinite(value) || value == 0) return {};
  const double magnitude = std::fabs(static_cast<double>(value));
  int point = DigitsBeforePoint(magnitude);
  double digits = std::nearbyint(TimesPowerOfTen(magnitude, SignificantDigits - point));
  if (digits >= LowestTooLong) {  // rounded up into one digit more
    digits /= 10;
    ++point;
  }
  auto text = std::to_string(static_cast<std::int32_t>(digits));
  text.erase(text.find_last_not_of('0') + 1);
  return {std::move(text), point, value < 0};
}

void AddOneToLastDigit(Decimal& decimal) {
  const auto nines = decimal.Digits.size() - (decimal.Digits.find_last_not_of('9') + 1);
  decimal.Digits.resize(decimal.Digits.size() - nines);
  if (decimal.Digits.empty()) {
    decimal.Digits = "1";
    ++decimal.Point;
  } else {
    ++decimal.Digits.back();
  }
}

void RoundToDecimals(Decimal& decimal, int decimals) {
  const int kept = decimal.Point + decimals;
  if (kept >= static_cast<int>(decimal.Digits.size())) return;
  const bool up = kept >= 0 && decimal.Digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.Digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
  if (up) AddOneToLastDigit(decimal);
  decimal.Digits.erase(decimal.Digits.find_last_not_of('0') + 1);
}

char Digit(int number) {
  return static_cast<char>('0' + number);
}

void AppendWholePart(std::string& text, const Decimal& decimal) {
  if (decimal.Point <= 0) return;
  const auto length = text.size() + static_cast<std::size_t>(decimal.Point);
  text.append(decimal.Digits, 0, static_cast<std::size_t>(decimal.Point)).resize(length, '0');
}

std::string WholeNumberText(double value) {
  std::array<char, 64> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed).ptr;
  return {buffer.data(), end};
}

bool HasDecimals(const Decimal& decimal) {
  return !decimal.Digits.empty() && decimal.Point < static_cast<int>(decimal.Digits.size());
}

void AppendDecimals(std::string& text, const Decimal& decimal) {
  if (!HasDecimals(decimal)) return;
  text.append(static_cast<std::size_t>(std::max(-decimal.Point, 0)), '0');
  text.append(decimal.Digits, static_cast<std::size_t>(std::max(decimal.Point, 0)));
}

}  // namespace

std::string NormalizeDecimalText(std::string_view text) {
  return Without(std::string(Trim(text)), " ");
}

double ToDouble(std::string_view text) {
  const bool isNormal = text.find(' ') == std::string_view::npos;
  const auto normalized = isNormal ? std::string() : NormalizeDecimalText(text);
  std::string_view number = isNormal ? text : normalized;
  if (number.starts_with('+')) {
    number.remove_prefix(1);
    if (number.starts_with('-')) return 0;
  }
  double value = 0;
  std::from_chars(number.data(), number.data() + number.size(), value);
  return std::isfinite(value) ? value : 0;
}

float ToSingle(double value) {
  const bool fits = std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max());
  return fits ? static_cast<float>(value) : 0.0F;
}

std::int32_t WholeNumber(std::string_view text) {
  constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double Highest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::nearbyint(ToDouble(text)), Lowest, Highest));
}

std::string SingleText(float value) {
  if (value == std::trunc(value) && std::fabs(value) < LowestTooLong)
    return std::to_string(static_cast<std::int32_t>(value));
  const auto decimal = DecimalOf(value);
  std::string text = decimal.Negative ? "-" : "";
  if (decimal.Point <= 0) text.push_back('0');
  AppendWholePart(text, decimal);
  if (HasDecimals(decimal)) text.push_back('.');
  AppendDecimals(text, decimal);
  return text;
}

bool SingleHasDecimals(float value) {
  return value != std::trunc(value) && HasDecimals(DecimalOf(value));
}

std::string FormatSingle(float value) {
  auto decimal = DecimalOf(value);
  RoundToDecimals(decimal, PatternDecimals);
  std::string text = decimal.Negative && !decimal.Digits.empty() ? "-" : "";
  AppendWholePart(text, decimal);
  text.push_back('.');
  AppendDecimals(text, decimal);
  return text;
}

double RoundedToThreeDecimals(float value) {
  // A 24-bit value times 1000 is exact in 53 bits, so ties are real ties. Adding 0 makes -0 a plain 0.
  return std::nearbyint(static_cast<double>(value) * 1000.0) / 1000.0 + 0.0;
}

std::string RoundedToThreeDecimalsText(float value) {
  if (!std::isfinite(value)) return "0";
  const double rounded = RoundedToThreeDecimals(value);
  if (std::fabs(rounded) >= LongestInThousandths) return WholeNumberText(rounded);
  const auto thousandths = std::llrint(std::fabs(rounded) * 1000.0);
  auto text = std::to_string(thousandths / 1000);
  if (rounded < 0) text.insert(0, "-");
  if (const auto decimals = static_cast<int>(thousandths % 1000); decimals != 0) {
    text.append({'.', Digit(decimals / 100), Digit(decimals / 10 % 10), Digit(decimals % 10)});
    text.erase(text.find_last_not_of('0') + 1);
  }
  return text;
}

}  // namespace brelwin
