// Reads what the JSON service announces: a list of rows, each one activation.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alerts_page_reader.h"

namespace brelwin {

struct ServiceAlertsSummary {
  AlertsPageSummary Found;          // HasDays: whether it is whole and holds a row that can be read
  bool IsWhole = false;             // whether it is a list that ends
  bool SaysGone = false;            // whether it holds a row by which the service says that it is given up
  std::vector<std::string> Broken;  // beginnings of the first few rows that could not be read
};

// Reads a list, hostile or cut as it may be, and hands over its activations in the order of their times, as
// the alerts page has them, with the same bound of how far ahead they are.
ServiceAlertsSummary ReadServiceAlerts(std::string_view answer, const PageReadRequest& request,
                                       const ActivationTaker& take);

}  // namespace brelwin
