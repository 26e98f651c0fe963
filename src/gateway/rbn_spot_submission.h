// Posting a skimmer's spot: what is sent in its comment.
#pragma once

#include <string>
#include <string_view>

#include "gateway/spotlite_submission.h"

namespace brelwin {

// By this in its comment a post of a gateway is known.
inline constexpr std::string_view GatewayMark = "{Via Tarnlink}";

// True for what the gateway is about: a skimmer's spot of a station calling CQ that matches an alert.
bool IsGatewaySpot(const Spot& spot);

// The template with "XXX" replaced by the speed in words per minute, "YYY" by the signal-to-noise ratio in dB
// ("?" for what is not known) and "ZZZ" by the skimmer, cut to 60 characters.
std::string GatewaySpotComment(std::string_view commentTemplate, const Spot& spot);

// Puts the comment of the template into the spot and posts it. Anything but a gateway spot gives -500 and a
// log line; a null pointer gives status 0. `mayLeave` is asked when the form is about to leave the machine.
[[nodiscard]] SubmissionResult SendRBNSpotToSotawatch(Host& host, SpotliteTransfer& transfer,
                                                      const Configuration& configuration,
                                                      std::string_view login, std::string_view password,
                                                      std::string_view commentTemplate, Spot* spot,
                                                      const std::function<bool()>& mayLeave);

}  // namespace brelwin
