// Posting one spot to Sotawatch: form, request, waiting, answer and log entry.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "gateway/http_control.h"
#include "gateway/submission_status.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/spot.h"

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

// How long an answer, or a submission under way, is waited for, in seconds. The stream's connection and the
// form share the setting.
std::int32_t InternetTimeoutSeconds(const Configuration& configuration);

// Posts the spot and waits for the answer, yielding to the event queue. Every call that sends the form leaves
// an entry in the gateway's spot log, and every complete answer one, with what was posted, in
// "GatewayServerResponseLog.txt". Quitting ends the waiting, and nothing is posted after it; the status is
// then 0. So it is when `mayLeave`, asked when the form is about to leave the machine, says no. A null
// pointer gives status 0.
[[nodiscard]] SubmissionResult SendSpotToSotawatch(
    Host& host, SpotliteTransfer& transfer, const Configuration& configuration, std::string_view login,
    std::string_view password, const Spot* spot, const std::function<bool()>& mayLeave = [] { return true; });

}  // namespace brelwin
