// The least code that makes the same alerts of a made-up page: it knows the one shape of its tables, and
// nothing is ever missing, cut or odd.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "alerts/alert_collection.h"
#include "platform/host.h"

namespace brelwin::benchmarks {

struct PlainAlerts {
  AlertCollection Alerts;
  std::string Modifications;  // the text of the file
};

// The stations are those that close their window two hours after the alert time. Those withdrawn are logged.
PlainAlerts ReadMadeAlerts(std::string_view page, const std::unordered_set<std::string>& withLongWindow,
                           Host& host, CallsignCollection& knownActivators);

}  // namespace brelwin::benchmarks
