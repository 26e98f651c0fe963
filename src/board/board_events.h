// What happens to the board, whoever brings it: the program as it runs, the store after a restart, a replay.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "board/activation_facts.h"

namespace brelwin {

// Who is where: the station as it was written, its base callsign, and the summit with what is known of it.
struct StationOnSummit {
  std::string Station;
  std::string BaseCallsign;
  std::string Summit;  // empty when nobody said
  std::string SummitName;
  std::int16_t Points = 0;  // 0: not known

  bool operator==(const StationOnSummit&) const = default;
};

struct AnnouncedStation {
  StationOnSummit Who;
  Announcement What;

  bool operator==(const AnnouncedStation&) const = default;
};

// All announcements there are, withdrawn ones included.
struct AnnouncementsRead {
  std::vector<AnnouncedStation> All;

  bool operator==(const AnnouncementsRead&) const = default;
};

struct SkimmerHeard {
  std::string Station;
  std::string BaseCallsign;
  Hearing What;

  bool operator==(const SkimmerHeard&) const = default;
};

// A spot with the ID of an earlier one takes its place.
struct SotawatchSpotRead {
  StationOnSummit Who;
  Report What;

  bool operator==(const SotawatchSpotRead&) const = default;
};

struct SotawatchSpotTakenBack {
  std::string BaseCallsign;
  std::string ID;

  bool operator==(const SotawatchSpotTakenBack&) const = default;
};

struct GatewayDecided {
  std::string BaseCallsign;
  GatewayWord What;

  bool operator==(const GatewayDecided&) const = default;
};

using BoardEvent =
    std::variant<AnnouncementsRead, SkimmerHeard, SotawatchSpotRead, SotawatchSpotTakenBack, GatewayDecided>;

struct TimedEvent {
  DateTime When;  // UTC, when the program came to know it
  BoardEvent Event;

  bool operator==(const TimedEvent&) const = default;
};

}  // namespace brelwin
