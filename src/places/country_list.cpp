#include "places/country_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "places/portable_call.h"

namespace brelwin {

namespace {

// A prefix or whole callsign with what differs there from the country's own line.
struct CountryAlias {
  std::string Text;  // in capitals; never empty
  bool IsWholeCall = false;
  std::optional<GeoPoint> Place;
  std::string Continent;  // empty when it is the country's
};

struct CountryRecord {
  std::string Name;
  std::string Continent;
  GeoPoint Place;
  std::string Prefix;                     // the country's main one, in capitals
  std::vector<std::string_view> Aliases;  // as they stand in the record
};

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

// The record before its ";": eight values, each ended by ":" (name, two zones, continent, latitude, longitude
// with west positive, hours, main prefix), and the aliases, parted by commas. Empty when it is none.
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

// An alias: "DL", "=AA0O" for a whole callsign, and behind it, in any order, "(4)" and "[7]" for zones,
// "<33.5/97.2>" for the place, "{NA}" for the continent, "~8.0~" for the hours. Empty when it is none.
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

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// Guantanamo Bay has KG4 with two letters behind it; every other KG4 is in the United States.
std::string_view LookedUpPrefix(std::string_view call) {
  constexpr std::size_t callOfTheBase = 5;
  if (call.starts_with("KG4") && call.size() > 3 && call.size() != callOfTheBase) return "K";
  return call;
}

}  // namespace

CountryList::CountryList(std::string_view bytes) {
  const auto text = TextFromBytes(bytes);
  std::string_view rest = text;
  std::size_t line = 1;
  while (!IsBlank(rest)) {
    const auto blank = rest.substr(0, rest.find_first_not_of(" \t\r\n"));
    rest.remove_prefix(blank.size());
    line += LinesBegunIn(blank);
    const auto record = rest.substr(0, rest.find(';'));
    // A record without its end was cut: its last prefix may be half of one.
    const bool isCut = record.size() == rest.size();
    if (isCut) faults_.Add(line, "a record without its end");
    if (isCut) break;
    ReadRecord(record, line);
    line += LinesBegunIn(record);
    rest.remove_prefix(record.size() + 1);
  }
}

void CountryList::ReadRecord(std::string_view record, std::size_t line) {
  const auto read = ReadCountryRecord(record);
  if (!read) return faults_.Add(line, "no country record");
  countries_.push_back({read->Name, read->Continent, read->Place});
  const auto country = countries_.size() - 1;
  prefixes_.insert_or_assign(read->Prefix, country);
  for (const auto alias : read->Aliases)
    if (!IsBlank(alias)) AddAlias(alias, country, line);
}

void CountryList::AddAlias(std::string_view alias, std::size_t country, std::size_t line) {
  const auto read = ReadCountryAlias(alias);
  if (!read) return faults_.Add(line, "a broken prefix");
  if (read->Place || !read->Continent.empty()) {
    auto part = countries_[country];
    if (read->Place) part.Place = *read->Place;
    if (!read->Continent.empty()) part.Continent = read->Continent;
    countries_.push_back(std::move(part));
    country = countries_.size() - 1;
  }
  (read->IsWholeCall ? calls_ : prefixes_).insert_or_assign(read->Text, country);
}

const Country* CountryList::Find(std::string_view callsign) const {
  if (const auto* country = FindCall(CallWithoutSkimmerMark(callsign))) return country;
  const auto place = CallThatTellsCountry(callsign);
  if (const auto* country = FindCall(place)) return country;
  return FindPrefix(LookedUpPrefix(place));
}

const Country* CountryList::FindCall(std::string_view call) const {
  const auto found = calls_.find(call);
  return found == calls_.end() ? nullptr : &countries_[found->second];
}

const Country* CountryList::FindPrefix(std::string_view call) const {
  for (; !call.empty(); call.remove_suffix(1))
    if (const auto found = prefixes_.find(call); found != prefixes_.end()) return &countries_[found->second];
  return nullptr;
}

}  // namespace brelwin
