// Turns a block of text from the stream into spots, dropping what the user does not want.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alert_collection.h"
#include "base/date_time.h"
#include "platform/host.h"
#include "rbn/recent_spots.h"
#include "rbn/spot_line.h"
#include "rbn/spot_rules.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Where and when the line was received.
struct LineReceipt {
  std::int32_t RunningNumber = 0;  // of the handled lines of the block, from 1
  std::size_t PieceNumber = 0;     // of the text between two line starts, from 1
  DateTime LocalNow;
};

SpotPointer BuildRBNSpot(SpotLine& line, LineFacts& facts, const LineReceipt& receipt);

// Adds the wanted spots of the block to `newSpots`, in the order of its lines, each under its ID, and
// remembers them as recent ones. A block that does not begin with "DX de" is ignored whole. Spots of stations
// with alerts are matched to the alerts at the present time, and log lines tell of matches and misses.
// `count` is the number of lines that were handled, dropped ones included. `unmatched`, when given, gets the
// base callsign of every line of an announced station that matched no alert, whether the spot was kept or
// not; several in a row of the same station are one. Returns -1 when it ran to the end, else 0 and the error
// text; spots that were added by then stay.
std::int32_t ParseReverseBeaconSpots(Host& host, std::string_view text, const SpotFilter& filter,
                                     const CallsignCollection& knownActivators, const AlertCollection& alerts,
                                     RecentRBNSpots& recentSpots, SpotCollection& newSpots,
                                     std::int32_t& count, std::string& errorText,
                                     std::vector<std::string>* unmatched = nullptr);

}  // namespace brelwin
