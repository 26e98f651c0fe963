// The announcements of the JSON service: read from its rows, and taken into the alerts of the program in
// the same way as those of the page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alerts_intake.h"
#include "alerts/alerts_page_reader.h"
#include "spots/service_client.h"

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

class ServiceAlerts {
 public:
  ServiceAlerts(Host& host, ServiceClient& client) : host_(host), client_(client) {}

  // Asks the service at the request's address, when it may be asked, and replaces the alerts with what it
  // announces; what it knows to be unchanged is taken anew, so that files edited meanwhile count. While it
  // may not be asked nothing changes. The results are those of the alerts page, of the last question where
  // nothing was asked.
  std::int32_t Refresh(const AlertsPageRequest& request, AlertCollection& alerts,
                       CallsignCollection& knownActivators, std::string& errorText);

  // Whether the service has said that it is given up.
  bool IsGone() const { return isGone_; }

 private:
  struct Outcome {
    std::int32_t Result = 0;
    std::string ErrorText;
  };

  Outcome Ask(const AlertsPageRequest& request, AlertCollection& alerts, CallsignCollection& knownActivators);
  ServiceAlertsSummary Take(const std::string& list, const AlertsPageRequest& request,
                            AlertCollection& alerts, CallsignCollection& knownActivators);
  bool IsListOld() const;
  void Decide(const std::string& list, bool isUsed);
  void NoteGone(bool isGone, const std::string& words);

  Host& host_;
  ServiceClient& client_;
  std::string list_;  // that was last accepted
  Instant listedAt_;
  std::vector<std::string> toldBroken_;
  Outcome last_;
  bool isGone_ = false;
};

}  // namespace brelwin
