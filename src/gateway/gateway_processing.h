// The gateway: alert-matched skimmer spots are posted to Sotawatch, unless Sotawatch has an equivalent spot
// or the station was sent too recently.
#pragma once

#include <cstdint>
#include <string>

#include "gateway/gateway.h"

namespace brelwin {

// Takes the spots of this cycle in their order through the gates and posts those that pass. `heardSince` is
// when the connection was made on which they were heard: what was heard before the program stood still is
// refused. Waits, yielding to the event queue, for the delay, the feed and each answer. Boxes, login and
// password count as they are just before each post; what may not go any more is refused without being waited
// for. A quit ends it with nothing posted afterwards. Must not be entered while it is on the stack. Returns 0
// when it looked at no spot (the gateway is off, something is missing, or duplicate filtering had to be
// corrected first), -1 when it went through the spots or gave up for want of spots to compare with, -200 when
// a submission under way did not end in time. `message` is cleared on entry and receives the words of the
// last submission unless that was a success.
std::int32_t PerformGatewayProcessing(Gateway& gateway, const SpotCollection& matchedSpots,
                                      Instant heardSince, const GatewayValues& values, std::string& message);

}  // namespace brelwin
