// Reads the JSON service once, beside its schedule, for who must not miss what it holds at this moment.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/service_client.h"
#include "spots/spot.h"

namespace brelwin {

// The spots that are not older than the age, newest first and without those that are only shown. None when
// the service could not be read, or wants to be left alone.
std::vector<SpotPointer> ReadServiceBeside(Host& host, ServiceClient& client, std::string_view root,
                                           std::int64_t maximumAgeInMinutes,
                                           CallsignCollection& knownActivators);

}  // namespace brelwin
