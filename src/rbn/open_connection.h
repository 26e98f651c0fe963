// Opening and closing the connection to the Reverse Beacon Network.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "rbn/connection.h"

namespace brelwin {

// Connects to the host (empty: the public server) and port (below 1: 7000), waiting for the connection as
// long as the settings say, and yielding meanwhile; the check timer stands still. A socket that hangs in
// closing is replaced by one of the next index. Whether the connection came up is in `Connected` and in the
// log. An attempt that is not answered in time goes on until the next one. True when it ran to the end, also
// at once when another call of it is still waiting; false, with the error text, after a run-time error.
bool OpenRBNConnection(RBNConnection& connection, std::string_view host, std::int32_t port,
                       std::string& errorText);

// Closes the socket in use, whatever it is doing, and forgets what was received. True when done.
bool CloseRBNConnection(RBNConnection& connection, std::string& errorText);

}  // namespace brelwin
