#include "board/row_text.h"

#include <array>
#include <concepts>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "board/board_json.h"

namespace brelwin {
namespace {

using namespace board_json;

constexpr std::int64_t SecondsOfDay = 86'400;

// By their place among the kinds of events.
constexpr std::array<const char*, std::variant_size_v<BoardEvent>> Kinds = {"announced", "heard", "spotted",
                                                                            "takenBack", "gateway"};

template <class Value>
Value Read(const Json& json) {
  Value value;
  ReadInto(json, value);
  return value;
}

const Json& At(const Json& json, const char* name) {
  Require(json.is_object() && json.contains(name));
  return json[name];
}

// Bytes that are no UTF-8 become U+FFFD.
std::string Line(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string EventLine(const TimedEvent& event, Json what) {
  return Line({{"t", event.When.Seconds}, {"kind", Kinds[event.Event.index()]}, {"event", std::move(what)}});
}

template <class Result, class Body>
std::optional<Result> Readable(std::string_view text, Body body) {
  try {
    return body(Json::parse(text));
  } catch (const NotReadable&) {
    return {};
  } catch (const Json::exception&) {
    return {};
  }
}

AnnouncedByKey ByKey(const AnnouncementsRead& read) {
  AnnouncedByKey byKey;
  for (const auto& one : read.All) byKey.insert_or_assign(one.What.Key, one);
  return byKey;
}

Json Difference(const AnnouncedByKey& before, const AnnouncedByKey& after) {
  Json difference = {{"changed", Json::array()}, {"gone", Json::array()}};
  for (const auto& [key, one] : after) {
    const auto held = before.find(key);
    if (held == before.end() || held->second != one) difference["changed"].push_back(Written(one));
  }
  for (const auto& [key, one] : before) {
    if (!after.contains(key)) difference["gone"].push_back(key);
  }
  return difference;
}

AnnouncementsRead ReadAnnouncements(const Json& json, AnnouncedByKey& before) {
  if (json.contains("whole")) before.clear();
  for (const auto& key : At(json, "gone")) before.erase(Read<std::string>(key));
  for (const auto& one : At(json, "changed")) {
    auto announced = Read<AnnouncedStation>(one);
    auto key = announced.What.Key;
    before.insert_or_assign(std::move(key), std::move(announced));
  }
  AnnouncementsRead read;
  for (const auto& [key, one] : before) read.All.push_back(one);
  return read;
}

// The event of the kind that stands at `Place` or behind it.
template <std::size_t Place = 0>
BoardEvent ReadEvent(const std::string& kind, const Json& json, AnnouncedByKey& before) {
  if constexpr (Place == Kinds.size()) {
    throw NotReadable();
  } else {
    using Event = std::variant_alternative_t<Place, BoardEvent>;
    if (kind != Kinds[Place]) return ReadEvent<Place + 1>(kind, json, before);
    if constexpr (std::same_as<Event, AnnouncementsRead>)
      return ReadAnnouncements(json, before);
    else
      return Read<Event>(json);
  }
}

}  // namespace

std::string RowText(const ActivationRow& row) {
  return Line(Written(row));
}

std::optional<ActivationRow> ReadRowText(std::string_view text) {
  return Readable<ActivationRow>(text, [](const Json& json) { return Read<ActivationRow>(json); });
}

std::string EventWriter::Write(const TimedEvent& event) {
  const auto write = [&]<class What>(const What& what) {
    if constexpr (std::same_as<What, AnnouncementsRead>)
      return WriteAnnouncements(what, event.When);
    else
      return EventLine(event, Written(what));
  };
  return std::visit(write, event.Event);
}

std::string EventWriter::WriteAnnouncements(const AnnouncementsRead& read, DateTime when) {
  const auto day = when.Seconds / SecondsOfDay;
  const bool isWhole = day != std::exchange(day_, day);
  auto after = ByKey(read);
  auto what = Difference(isWhole ? AnnouncedByKey() : before_, after);
  before_ = std::move(after);
  if (isWhole) what["whole"] = true;
  const bool saysNothing = !isWhole && what["changed"].empty() && what["gone"].empty();
  return saysNothing ? std::string() : EventLine({when, AnnouncementsRead()}, std::move(what));
}

std::optional<TimedEvent> EventReader::Read(std::string_view text) {
  return Readable<TimedEvent>(text, [this](const Json& json) {
    const auto kind = brelwin::Read<std::string>(At(json, "kind"));
    const auto when = brelwin::Read<DateTime>(At(json, "t"));
    return TimedEvent{when, ReadEvent(kind, At(json, "event"), before_)};
  });
}

}  // namespace brelwin
