#include "core/ini_utilities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "base/encoding.h"
#include "base/text.h"
#include "core/scrambling.h"
#include "core/trap.h"
#include "platform/profile.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::size_t ShortestScrambledValue = 4;
constexpr std::size_t DefaultPadding = 5;
constexpr std::size_t LongestDefaultFill = 40;
constexpr std::size_t LongestSecret = 99;  // its length has two digits
constexpr int LargestSelector = 5;

std::optional<std::int32_t> RoundedToInteger(std::string_view text) {
  if (text.empty()) return 0;
  const auto number = NumberOfWholeText(text);
  if (!number) return {};
  const auto rounded = std::nearbyint(*number);
  using Limits = std::numeric_limits<std::int32_t>;
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) return {};
  return static_cast<std::int32_t>(rounded);
}

int RandomSelector(std::mt19937& generator) {
  while (true) {
    const int digit = RandomCharacter(2, generator) - '0';
    if (digit >= 1 && digit <= LargestSelector) return digit;
  }
}

// The secret behind two digits that give its length, with random characters up to `fillLength` behind it.
std::string PlainBody(std::string_view secret, std::size_t length, std::size_t fillLength,
                      std::mt19937& generator) {
  auto body = (length < 10 ? "0" : "") + std::to_string(length) + std::string(secret);
  for (auto filled = length + 2; filled < fillLength; ++filled) body.push_back(RandomCharacter(0, generator));
  return body;
}

std::string SecretIn(std::string_view body) {
  const auto digits = FirstCharacters(body, 2);
  const auto length = std::max(0, WholeNumber(digits));
  return std::string(FirstCharacters(body.substr(digits.size()), static_cast<std::size_t>(length)));
}

std::string Unscrambled(const std::string& value) {
  if (CharacterCount(value) < ShortestScrambledValue) return {};
  const auto selector = FirstCharacters(value, 1);
  return SecretIn(ShiftDecode(value.substr(selector.size()), WholeNumber(selector)));
}

}  // namespace

bool IsTrueWord(std::string_view value) {
  constexpr std::array<std::string_view, 4> TrueWords = {"TRUE", "YES", "-1", "1"};
  return std::find(TrueWords.begin(), TrueWords.end(), UpperCase(Trim(value))) != TrueWords.end();
}

std::optional<double> NumberOfWholeText(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  if (!isWhole || !std::isfinite(number)) return {};
  return number;
}

std::string ReadINIValue(Host& host, std::string_view path, std::string_view section, std::string_view key) {
  if (path.empty() || section.empty() || key.empty()) return {};
  return TrapErrors(
      [&] { return GetPrivateProfileString(host.Disk, section, key, "", LongestProfileValue + 1, path); },
      std::string(), [](const RuntimeError&) {});
}

bool WriteINIValue(Host& host, std::string_view path, std::string_view section, std::string_view key,
                   std::string_view value) {
  if (path.empty() || section.empty() || key.empty()) return false;
  return TrapErrors([&] { return WritePrivateProfileString(host.Disk, section, key, value, path); }, false,
                    [](const RuntimeError&) {});
}

std::string clsINIUtilities::ReadStringKey(std::string_view theSection, std::string_view theKey) {
  return std::string(Trim(ReadINIValue(host_, INIPath, theSection, theKey)));
}

bool clsINIUtilities::ReadTrueFalseKey(std::string_view theSection, std::string_view theKey) {
  return IsTrueWord(ReadStringKey(theSection, theKey));
}

double clsINIUtilities::ReadNumericKey(std::string_view theSection, std::string_view theKey) {
  return ToDouble(ReadStringKey(theSection, theKey));
}

std::int16_t clsINIUtilities::ReadOldCheckBoxKey(std::string_view theSection, std::string_view theKey) {
  return ReadTrueFalseKey(theSection, theKey) ? 1 : 0;
}

std::string clsINIUtilities::ReadEncryptedKey(std::string_view theSection, std::string_view theKey) {
  return TrapErrors([&] { return Unscrambled(ReadStringKey(theSection, theKey)); }, std::string(),
                    [](const RuntimeError&) {});
}

void clsINIUtilities::WriteStringKey(std::string_view theSection, std::string_view theKey,
                                     std::string_view theValue) {
  WriteINIValue(host_, INIPath, theSection, theKey, Trim(theValue));
}

void clsINIUtilities::WriteTrueFalseKey(std::string_view theSection, std::string_view theKey,
                                        std::int16_t theFlag) {
  WriteStringKey(theSection, theKey, theFlag == -1 || theFlag == 1 ? "True" : "False");
}

void clsINIUtilities::WriteIntegerKey(std::string_view theSection, std::string_view theKey,
                                      std::string_view theValue) {
  if (const auto number = RoundedToInteger(Trim(theValue)))
    WriteStringKey(theSection, theKey, std::to_string(*number));
}

void clsINIUtilities::WriteEncryptedKey(std::string_view theSection, std::string_view theKey,
                                        std::string_view theValue, std::optional<std::size_t> fillLength) {
  TrapErrorsSilently([&] {
    const auto length = CharacterCount(theValue);
    if (length > LongestSecret) return;
    const auto fill = fillLength.value_or(std::min(length + DefaultPadding, LongestDefaultFill));
    std::mt19937 generator{std::random_device{}()};
    const int selector = RandomSelector(generator);
    const auto body = PlainBody(theValue, length, fill, generator);
    WriteStringKey(theSection, theKey, std::to_string(selector) + ShiftEncode(body, selector));
  });
}

}  // namespace brelwin
