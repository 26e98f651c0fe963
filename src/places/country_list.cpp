#include "places/country_list.h"

#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "places/country_record.h"
#include "places/portable_call.h"

namespace brelwin {
namespace {

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
