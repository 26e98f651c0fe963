#include "places/country_record.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "base/text.h"

namespace brelwin {
namespace {

constexpr std::size_t ValueCount = 8;
constexpr std::string_view Blanks = " \t\r\n";

std::string_view WithoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::optional<double> ReadDegrees(std::string_view text, double most) {
  text = WithoutBlanks(text);
  double degrees = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), degrees);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return std::abs(degrees) <= most ? std::optional(degrees) : std::nullopt;
}

// The list counts longitudes westward.
std::optional<GeoPoint> ReadPoint(std::string_view latitudeText, std::string_view westText) {
  const auto latitude = ReadDegrees(latitudeText, 90);
  const auto west = ReadDegrees(westText, 180);
  if (!latitude || !west) return std::nullopt;
  return GeoPoint{*latitude, 0 - *west};
}

bool IsCallsignText(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/';
  });
}

char ClosingSign(char opening) {
  switch (opening) {
    case '(': return ')';
    case '[': return ']';
    case '<': return '>';
    case '{': return '}';
    case '~': return '~';
    default: return 0;
  }
}

// One value between signs; zones and hours are of no interest. False when it is broken.
bool ApplyOverride(char sign, std::string_view value, CountryAlias& alias) {
  if (sign == '{') alias.Continent = UpperCase(WithoutBlanks(value));
  if (sign != '<') return true;
  const auto slash = value.find('/');
  if (slash == std::string_view::npos) return false;
  alias.Place = ReadPoint(value.substr(0, slash), value.substr(slash + 1));
  return alias.Place.has_value();
}

bool ApplyOverrides(std::string_view text, CountryAlias& alias) {
  while (!text.empty()) {
    const char closing = ClosingSign(text.front());
    const auto end = closing == 0 ? std::string_view::npos : text.find(closing, 1);
    if (end == std::string_view::npos) return false;
    if (!ApplyOverride(text.front(), text.substr(1, end - 1), alias)) return false;
    text.remove_prefix(end + 1);
  }
  return true;
}

}  // namespace

std::optional<CountryRecord> ReadCountryRecord(std::string_view record) {
  std::array<std::string_view, ValueCount> values;
  for (auto& value : values) {
    const auto colon = record.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    value = WithoutBlanks(record.substr(0, colon));
    record.remove_prefix(colon + 1);
  }
  const auto place = ReadPoint(values[4], values[5]);
  auto prefix = UpperCase(values[7]);
  // Marks a country of one contest's list only.
  if (prefix.starts_with('*')) prefix.erase(0, 1);
  if (values[0].empty() || values[3].empty() || !place || !IsCallsignText(prefix)) return std::nullopt;
  return CountryRecord{std::string(values[0]), UpperCase(values[3]), *place, prefix, Split(record, ",")};
}

std::optional<CountryAlias> ReadCountryAlias(std::string_view text) {
  text = WithoutBlanks(text);
  CountryAlias alias;
  alias.IsWholeCall = text.starts_with('=');
  if (alias.IsWholeCall) text.remove_prefix(1);
  const auto end = std::min(text.find_first_of("([<{~"), text.size());
  alias.Text = UpperCase(text.substr(0, end));
  if (!IsCallsignText(alias.Text) || !ApplyOverrides(text.substr(end), alias)) return std::nullopt;
  return alias;
}

}  // namespace brelwin
