// The readable report of the current alerts, for the user to open. It is never read back.
#pragma once

#include <string>
#include <string_view>

#include "alerts/alert_collection.h"
#include "platform/host.h"

namespace brelwin {

// The report: a heading for each day, a line for each alert, a line of one blank between days.
std::string AlertsReportText(const AlertCollection& alerts);

// Writes the report to the path, or to "SOTAAlerts.txt" in the program's folder when it is empty. True when
// it was written.
bool WriteAlertsReport(Host& host, std::string_view path, const AlertCollection& alerts);

}  // namespace brelwin
