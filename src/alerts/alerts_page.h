// Reads the alerts page into the alerts of the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "alerts/alerts_intake.h"
#include "platform/host.h"

namespace brelwin {

// Fetches the page, yielding meanwhile, in which others may start work, and replaces the alerts with what it
// announces. New activators are added to the known ones and to "SOTAActivators.txt" when there is such a
// file. Returns -1 when it ran to the end, 0 when the page came empty or broke off before its closing tag or
// an error ended it, -100 when it could not be fetched. In the last two cases, and for a page without any day
// heading, the alerts stay as they are, and the error text says why.
std::int32_t GetAlertsFromSotawatchHTMLPage(Host& host, const AlertsPageRequest& request,
                                            AlertCollection& alerts, CallsignCollection& knownActivators,
                                            std::string& errorText);

// The same for a page that was fetched already. `bodyLength` is the length of what came, in bytes.
std::int32_t TakeAlertsFromPage(Host& host, std::string_view page, std::size_t bodyLength,
                                const AlertsPageRequest& request, AlertCollection& alerts,
                                CallsignCollection& knownActivators, std::string& errorText);

}  // namespace brelwin
