#include "service_json.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "times.h"
#include "world.h"

namespace practice {
namespace {

using Json = nlohmann::json;
using std::string;
using std::string_view;

constexpr std::size_t LongestFrequencies = 40;
constexpr std::array<string_view, 6> Names{"Tom", "Zoë", "", "José \"Pepe\"", "Ann & Ben", "2"};

string Text(const Json& json, bool isOld) {
  return json.dump(-1, ' ', isOld, Json::error_handler_t::replace);
}

std::uint64_t NumberOf(string_view text) {
  std::uint64_t number = 7;
  for (const char c : text) number = number * 31 + static_cast<unsigned char>(c);
  return number % 100'000;
}

string_view NameOf(string_view station) {
  return Names.at(NumberOf(station) % Names.size());
}

// What is empty is null in the old shape.
Json OldText(string_view text) {
  return text.empty() ? Json() : Json(text);
}

const Summit* SummitOf(string_view reference) {
  const auto summits = Summits();
  const auto found = std::ranges::find(summits, reference, &Summit::Reference);
  return found == summits.end() ? nullptr : &*found;
}

// "High Crag, 978m, 10 points", and the ways in which it has been written beside that.
Json SummitDetails(string_view reference, std::int64_t id) {
  const auto* const summit = SummitOf(reference);
  if (summit == nullptr) return {};
  const auto start =
      (id % 5 == 0 ? "7081" : string(summit->Name)) + ", " + std::to_string(summit->Meters) + "m";
  const auto points = std::to_string(summit->Points);
  constexpr std::array<string_view, 3> Words{" points", " pts", " Point(s)"};
  return id % 7 == 0 ? start : start + ", " + points + string(Words.at(static_cast<std::size_t>(id / 3 % 3)));
}

void PutReference(Json& json, string_view reference) {
  const auto slash = std::min(reference.find('/'), reference.size());
  json["associationCode"] = reference.substr(0, slash);
  json["summitCode"] = reference.substr(std::min(slash + 1, reference.size()));
}

// No decimals, three or seven.
string Decimals(std::int64_t id) {
  constexpr std::array<string_view, 3> Some{"", ".123", ".9876543"};
  return string(Some.at(static_cast<std::size_t>(id / 3 % 3)));
}

Json FrequencyNumber(string_view text) {
  const auto megahertz = std::strtod(string(text).c_str(), nullptr);
  return megahertz > 0 ? Json(megahertz) : Json();
}

string_view WordOf(SpotType type) {
  switch (type) {
    case SpotType::Normal: return "NORMAL";
    case SpotType::Qrt: return "QRT";
    case SpotType::Test: return "TEST";
  }
  return {};
}

void PutSummit(Json& json, string_view reference) {
  json["summitCode"] = reference;
  const auto* const summit = SummitOf(reference);
  json["summitName"] = summit == nullptr ? Json() : Json(summit->Name);
  json["AltM"] = summit == nullptr ? Json() : Json(summit->Meters);
  json["AltFt"] = summit == nullptr ? Json() : Json(std::lround(summit->Meters / 0.3048));
  json["points"] = summit == nullptr ? Json() : Json(summit->Points);
}

Json NewSpot(const SpotRow& row) {
  const auto& what = row.Spot.What;
  Json json{{"id", row.Id},
            {"timeStamp", IsoTime(row.Spot.Time) + Decimals(row.Id) + "Z"},
            {"activatorCallsign", what.Station},
            {"activatorName", NameOf(what.Station)},
            {"callsign", what.Spotter},
            {"comments", what.Comment},
            {"frequency", FrequencyNumber(what.Frequency)},
            {"mode", what.Mode},
            {"userID", NumberOf(what.Spotter)},
            {"type", WordOf(row.Type)}};
  json["epoch"] = "00000000-0000-4000-8000-" + std::to_string(100'000'000'000 + row.Spot.Time);
  PutSummit(json, what.Summit);
  return json;
}

// It has no types: who goes home does so on 7.000 MHz, in a mode of its own.
Json OldSpot(const SpotRow& row) {
  const auto& what = row.Spot.What;
  const bool isQrt = row.Type == SpotType::Qrt;
  Json json{{"id", row.Id},
            {"userID", NumberOf(what.Spotter)},
            {"timeStamp", IsoTime(row.Spot.Time) + Decimals(row.Id)},
            {"comments", OldText(what.Comment)},
            {"callsign", what.Spotter},
            {"activatorCallsign", what.Station},
            {"activatorName", OldText(NameOf(what.Station))},
            {"frequency", isQrt ? "7.000" : what.Frequency},
            {"mode", isQrt ? "Other" : what.Mode},
            {"summitDetails", SummitDetails(what.Summit, row.Id)},
            {"highlightColor", Json()}};
  PutReference(json, what.Summit);
  return json;
}

}  // namespace

string JsonOf(const SpotRow& row) {
  return Text(row.IsOld ? OldSpot(row) : NewSpot(row), row.IsOld);
}

string JsonOf(const AlertRow& row) {
  const auto& what = row.What;
  Json json{{"id", row.Id},
            {"dateActivated", IsoTime(what.Time) + (row.IsOld ? "" : "Z")},
            {"activatingCallsign", what.Station},
            {"activatorName", row.IsOld ? OldText(NameOf(what.Station)) : Json(NameOf(what.Station))},
            {"posterCallsign", what.Poster},
            {"comments", row.IsOld ? OldText(what.Comment) : Json(what.Comment)},
            {"summitDetails", SummitDetails(what.Summit, row.Id)},
            {"frequency", what.FrequencyModes.substr(0, LongestFrequencies)}};
  PutReference(json, what.Summit);
  return Text(json, row.IsOld);
}

string OddRow(Random& random, const string& good) {
  auto json = Json::parse(good);
  for (const auto* const station : {"activatorCallsign", "activatingCallsign"})
    if (json.contains(station)) json[station] = "Q1ODD";
  const string time = json.contains("timeStamp") ? "timeStamp" : "dateActivated";
  const auto number = random.Between(1, 1'000'000'000);
  json["id"] = number;
  switch (random.Between(1, 11)) {
    case 1: return std::to_string(number);
    case 2: return R"("a row that is a text")";
    case 3: return "null";
    case 4: return "[[[[]]],{}]";
    case 5: json.erase(time); break;
    case 6: json[time] = "yesterday, about noon"; break;
    case 7:
      for (auto& value : json) value = nullptr;
      break;
    case 8:
      for (auto& value : json) value = Json{{"a", Json::array({1, "b", nullptr})}};
      break;
    case 9: json["comments"] = string(40'000, 'x'); break;
    case 10:
      json.update(
          {{"frequency", true}, {"mode", 5}, {"comments", 73}, {"points", "eight"}, {"more", {1, 2}}});
      break;
    default: return good;
  }
  return Text(json, true);
}

string DeprecatedSpot() {
  Json json{{"id", 1}, {"userID", 0}, {"timeStamp", "2024-01-01T00:00:00"}, {"frequency", "DEPRECATED"}};
  for (const auto* const name : {"comments", "callsign", "associationCode", "summitCode", "activatorCallsign",
                                 "activatorName", "mode", "summitDetails"})
    json[name] = "DEPRECATED";
  return json.dump();
}

string DeprecatedAlert() {
  Json json{{"id", 1}, {"dateActivated", "2024-01-01T00:00:00"}};
  for (const auto* const name : {"activatingCallsign", "activatorName", "posterCallsign", "comments",
                                 "associationCode", "summitCode", "summitDetails", "frequency"})
    json[name] = "DEPRECATED";
  return json.dump();
}

}  // namespace practice
