// The board's structs as JSON: one table of members for each, by which they are written and read. What is at
// its default is left out.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>

#include "board/activation_row.h"

namespace brelwin::board_json {

using Json = nlohmann::json;

inline constexpr std::int64_t LatestSecond = 253'402'300'799;  // of the year 9999

struct NotReadable : std::runtime_error {
  NotReadable() : std::runtime_error("not a text of the board") {}
};

template <class Owner, class Value>
struct Member {
  const char* Name;
  Value Owner::*Place;
};

// Without it clang 16 does not find out the two types.
template <class Owner, class Value>
Member(const char*, Value Owner::*) -> Member<Owner, Value>;

// What is written of each struct, by name, for both directions.
template <class Owner>
inline constexpr auto Members = std::tuple{};

template <>
inline constexpr auto Members<StationOnSummit> =
    std::tuple{Member{"station", &StationOnSummit::Station}, Member{"call", &StationOnSummit::BaseCallsign},
               Member{"summit", &StationOnSummit::Summit}, Member{"name", &StationOnSummit::SummitName},
               Member{"points", &StationOnSummit::Points}};

template <>
inline constexpr auto Members<Announcement> = std::tuple{Member{"key", &Announcement::Key},
                                                         Member{"begin", &Announcement::Begin},
                                                         Member{"planned", &Announcement::Planned},
                                                         Member{"end", &Announcement::End},
                                                         Member{"where", &Announcement::FrequencyModes},
                                                         Member{"comment", &Announcement::Comment},
                                                         Member{"withdrawn", &Announcement::Withdrawn},
                                                         Member{"gone", &Announcement::IsGone}};

template <>
inline constexpr auto Members<Hearing> = std::tuple{
    Member{"t", &Hearing::When},     Member{"mhz", &Hearing::FrequencyInMhz}, Member{"mode", &Hearing::Mode},
    Member{"by", &Hearing::Skimmer}, Member{"db", &Hearing::Signal},          Member{"wpm", &Hearing::Speed}};

template <>
inline constexpr auto Members<Report> = std::tuple{Member{"id", &Report::ID},
                                                   Member{"t", &Report::When},
                                                   Member{"mhz", &Report::FrequencyInMhz},
                                                   Member{"mode", &Report::Mode},
                                                   Member{"comment", &Report::Comment},
                                                   Member{"by", &Report::Spotter},
                                                   Member{"self", &Report::IsSelfSpot},
                                                   Member{"qrt", &Report::SaysGone}};

template <>
inline constexpr auto Members<GatewayWord> =
    std::tuple{Member{"t", &GatewayWord::When}, Member{"sent", &GatewayWord::WasSent},
               Member{"words", &GatewayWord::Words}};

template <>
inline constexpr auto Members<SignalPoint> =
    std::tuple{Member{"t", &SignalPoint::Minute}, Member{"band", &SignalPoint::BandInMhz},
               Member{"db", &SignalPoint::Signal}};

template <>
inline constexpr auto Members<HeardSummary> =
    std::tuple{Member{"first", &HeardSummary::First}, Member{"last", &HeardSummary::Last},
               Member{"lines", &HeardSummary::Lines}, Member{"best", &HeardSummary::BestSignal},
               Member{"wpm", &HeardSummary::LastSpeed}};

template <>
inline constexpr auto Members<ActivationFacts> =
    std::tuple{Member{"announced", &ActivationFacts::Announcements},
               Member{"hearings", &ActivationFacts::Hearings},
               Member{"heard", &ActivationFacts::Heard},
               Member{"reports", &ActivationFacts::Reports},
               Member{"gateway", &ActivationFacts::Gateway},
               Member{"movedTo", &ActivationFacts::MovedTo},
               Member{"movedAt", &ActivationFacts::MovedAt}};

template <>
inline constexpr auto Members<Tuning> =
    std::tuple{Member{"mhz", &Tuning::FrequencyInMhz}, Member{"mode", &Tuning::Mode},
               Member{"t", &Tuning::Since}, Member{"self", &Tuning::IsByActivator}};

template <>
inline constexpr auto Members<StoryEvent> = std::tuple{
    Member{"t", &StoryEvent::When}, Member{"kind", &StoryEvent::Kind}, Member{"words", &StoryEvent::Words}};

template <>
inline constexpr auto Members<ActivationRow> =
    std::tuple{Member{"number", &ActivationRow::Number}, Member{"who", &ActivationRow::Who},
               Member{"facts", &ActivationRow::Facts},   Member{"tuned", &ActivationRow::Tuned},
               Member{"story", &ActivationRow::Story},   Member{"signals", &ActivationRow::Signals},
               Member{"last", &ActivationRow::LastEvent}};

template <>
inline constexpr auto Members<AnnouncedStation> =
    std::tuple{Member{"who", &AnnouncedStation::Who}, Member{"what", &AnnouncedStation::What}};

template <>
inline constexpr auto Members<SkimmerHeard> =
    std::tuple{Member{"station", &SkimmerHeard::Station}, Member{"call", &SkimmerHeard::BaseCallsign},
               Member{"what", &SkimmerHeard::What}};

template <>
inline constexpr auto Members<SotawatchSpotRead> =
    std::tuple{Member{"who", &SotawatchSpotRead::Who}, Member{"what", &SotawatchSpotRead::What}};

template <>
inline constexpr auto Members<SotawatchSpotTakenBack> = std::tuple{
    Member{"call", &SotawatchSpotTakenBack::BaseCallsign}, Member{"id", &SotawatchSpotTakenBack::ID}};

template <>
inline constexpr auto Members<GatewayDecided> =
    std::tuple{Member{"call", &GatewayDecided::BaseCallsign}, Member{"what", &GatewayDecided::What}};

template <class List>
concept ListOfValues = requires(List list) {
  list.emplace_back();
}
&&!std::same_as<List, std::string>;

// A word of 32 bits has a shorter text than the double next to it.
inline double Shortest(float value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double shortest = 0;
  std::from_chars(text.data(), end, shortest);
  return shortest;
}

// The value as JSON. Its kind is found at compile time.
template <class Value>
Json Written(const Value& value) {
  if constexpr (std::same_as<Value, float>) {
    return Shortest(value);
  } else if constexpr (std::same_as<Value, DateTime>) {
    return value.Seconds;
  } else if constexpr (std::is_enum_v<Value>) {
    return static_cast<int>(value);
  } else if constexpr (ListOfValues<Value>) {
    auto list = Json::array();
    for (const auto& one : value) list.push_back(Written(one));
    return list;
  } else if constexpr (requires { value.has_value(); }) {
    return Written(*value);
  } else if constexpr (std::tuple_size_v<decltype(Members<Value>)> > 0) {
    auto object = Json::object();
    const auto write = [&](const auto& member) {
      const auto& held = value.*member.Place;
      if (held != std::remove_cvref_t<decltype(held)>{}) object[member.Name] = Written(held);
    };
    std::apply([&](const auto&... members) { (write(members), ...); }, Members<Value>);
    return object;
  } else {
    return value;
  }
}

// Throws NotReadable unless the condition holds.
inline void Require(bool condition) {
  if (!condition) throw NotReadable();
}

template <class Whole>
Whole ReadWhole(const Json& json, std::int64_t least, std::int64_t most) {
  Require(json.is_number_integer());
  const auto number = json.get<std::int64_t>();
  Require(number >= least && number <= most);
  return static_cast<Whole>(number);
}

constexpr std::int64_t LastOf(Withdrawal) {
  return static_cast<std::int64_t>(Withdrawal::RemovedByEntry);
}
constexpr std::int64_t LastOf(StoryKind) {
  return static_cast<std::int64_t>(StoryKind::Moved);
}

// Reads the value; throws NotReadable when it is of another kind, or out of range.
template <class Value>
void ReadInto(const Json& json, Value& value) {
  if constexpr (std::same_as<Value, bool>) {
    Require(json.is_boolean());
    value = json.get<bool>();
  } else if constexpr (std::same_as<Value, std::string>) {
    Require(json.is_string());
    value = json.get<std::string>();
  } else if constexpr (std::same_as<Value, float>) {
    Require(json.is_number());
    value = static_cast<float>(json.get<double>());
    Require(std::isfinite(value));
  } else if constexpr (std::integral<Value>) {
    value = ReadWhole<Value>(json, std::numeric_limits<Value>::min(), std::numeric_limits<Value>::max());
  } else if constexpr (std::same_as<Value, DateTime>) {
    value.Seconds = ReadWhole<std::int64_t>(json, 0, LatestSecond);
  } else if constexpr (std::is_enum_v<Value>) {
    value = ReadWhole<Value>(json, 0, LastOf(value));
  } else if constexpr (ListOfValues<Value>) {
    Require(json.is_array());
    for (const auto& one : json) ReadInto(one, value.emplace_back());
  } else if constexpr (requires { value.emplace(); }) {
    ReadInto(json, value.emplace());
  } else {
    Require(json.is_object());
    const auto read = [&](const auto& member) {
      const auto found = json.find(member.Name);
      if (found != json.end()) ReadInto(*found, value.*member.Place);
    };
    std::apply([&](const auto&... members) { (read(members), ...); }, Members<Value>);
  }
}

}  // namespace brelwin::board_json
