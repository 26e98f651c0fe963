// What one check does with the stream: look after the connection, give up one that only looks alive, read
// what has come, and find the spots.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "alerts/alert_collection.h"
#include "platform/clock.h"
#include "rbn/connection.h"
#include "rbn/recent_spots.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// Text comes, but for more than `mostMinutes` whole minutes no spot line was in it. Never when that is 0 or
// less.
bool StreamIsStale(Instant lastSpotLine, std::int32_t mostMinutes, Instant now);

// What is known of a connection that has come up.
struct ConnectionSigns {
  Instant ConnectedAt;
  Instant LastArrival;  // of any bytes; when none have come, the time of the connection
  bool LoggedIn = false;
};

enum class Silence : std::uint8_t { None, NothingCame, NoLogin };

// The peer may be gone without a word, or talk without ever letting the program in. It is given 15 minutes,
// or three times `mostMinutes` when that is longer, and for ever when that is 0 or less.
Silence SilenceOf(const ConnectionSigns& signs, std::int32_t mostMinutes, Instant now);

// The minutes that SilenceOf gives a connection.
std::int64_t PatienceInMinutes(std::int32_t mostMinutes);

// Takes the login callsign from the screen and, unless it is empty or the stream is switched off or not
// configured, opens the connection to the configured server.
void ConnectToRBN(RBNConnection& connection);

// Closes a connection on which nothing has come, or no login, for too long. A check begins with it.
void CloseSilentConnection(RBNConnection& connection);

// Parses what was received and waits, also from a connection that has ended since. A connection that is stale
// is closed and opened anew. True when there are new spots to handle, in the order of their lines.
// `unmatched` gets the announced stations that were heard without matching an alert.
bool TakeRBNSpots(RBNConnection& connection, const SpotFilter& filter,
                  const CallsignCollection& knownActivators, const AlertCollection& alerts,
                  RecentRBNSpots& recentSpots, SpotCollection& newSpots, std::vector<std::string>& unmatched);

// The user has switched the stream on or off. On without a callsign is refused with a message.
void chkReverseBeaconSpotsEnabled_Click(RBNConnection& connection);

}  // namespace brelwin
