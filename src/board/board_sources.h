// What the program learns from its sources, as events of the board.
#pragma once

#include <optional>
#include <string_view>

#include "alerts/alert_collection.h"
#include "board/board_events.h"
#include "rbn/spot_line.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// All alerts with a time, and those that were withdrawn and not announced again, each with its own window or
// the user's.
AnnouncementsRead AnnouncementsOf(const AlertCollection& alerts, const SpotFilter& filter);

// The spot, heard at `utcNow` when it has no time of its own. Empty for a test spot and for one that names no
// station.
std::optional<SotawatchSpotRead> SotawatchSpotOf(const Spot& spot, DateTime utcNow);

// Says that the spot was taken back.
SotawatchSpotTakenBack TakenBack(const Spot& spot);

// What the gateway decided of the spot at the time.
GatewayDecided DecisionOf(const Spot& spot, DateTime utcNow, bool wasSent, std::string_view words);

// The callsign in a line of the stream, whole, line start included; empty when it is no spot line. Points
// into the line. It looks no farther than it has to: it is asked of every line.
std::string_view StationInLine(std::string_view line);

// The spot in such a line. Its time is `utcNow`, or the line's own when that is more than two minutes away.
// Empty when it is no spot line.
std::optional<SkimmerHeard> SkimmerHeardIn(std::string_view line, DateTime utcNow);

}  // namespace brelwin
