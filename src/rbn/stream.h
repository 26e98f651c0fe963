// What one check does with the stream: look after the connection, read what has come, and find the spots.
#pragma once

#include <string>
#include <vector>

#include "alerts/alert_collection.h"
#include "rbn/connection.h"
#include "rbn/recent_spots.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

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
