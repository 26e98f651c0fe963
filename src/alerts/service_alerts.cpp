#include "alerts/service_alerts.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "alerts/service_alert_rows.h"
#include "core/event_log.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "radio/web_address.h"

namespace brelwin {
namespace {

constexpr std::int32_t MostHours = 24 * 365;
constexpr std::chrono::minutes LongestLife{30};  // of a list whose epoch stands
constexpr std::string_view Procedure = "GetAlertsFromJSONService";
constexpr std::string_view EpochPath = "alerts/epoch";

// All that are announced, and more rows than there are: what is too far ahead today is not tomorrow, and a
// list of few hours may well be empty.
std::string ListPath() {
  return "alerts/" + std::to_string(MostHours) + "/10000/all/all";
}

// Empty when the list can be used.
std::string WhatIsWrong(const ServiceAlertsSummary& summary) {
  if (!summary.IsWhole) return "its list is none, or broke off";
  if (summary.SaysGone) return "it says that it is given up";
  return summary.Found.HasDays ? "" : "it announces nothing";
}

}  // namespace

std::int32_t ServiceAlerts::Refresh(const AlertsPageRequest& request, AlertCollection& alerts,
                                    CallsignCollection& knownActivators, std::string& errorText) {
  last_ = LogErrors(host_, Procedure, Outcome{StatusNothingDone, "An error ended the reading"},
                    [&] { return Ask(request, alerts, knownActivators); });
  errorText = last_.ErrorText;
  return last_.Result;
}

ServiceAlerts::Outcome ServiceAlerts::Ask(const AlertsPageRequest& request, AlertCollection& alerts,
                                          CallsignCollection& knownActivators) {
  const auto answer = client_.Ask(ServiceAddress(request.Url, EpochPath),
                                  ServiceAddress(request.Url, ListPath()), IsListOld());
  if (answer.Outcome == ServiceOutcome::NotDue || host_.ShuttingDown) return last_;
  auto wrong = answer.ErrorText;
  bool isGone = answer.Outcome == ServiceOutcome::Gone;
  if (answer.Outcome == ServiceOutcome::Unchanged) Take(list_, request, alerts, knownActivators);
  if (answer.Outcome == ServiceOutcome::Listed) {
    const auto summary = Take(answer.Body, request, alerts, knownActivators);
    wrong = WhatIsWrong(summary);
    isGone = summary.SaysGone;
    Decide(answer.Body, wrong.empty());
  }
  const auto service = "the JSON service at " + HostOfAddress(request.Url);
  NoteGone(isGone || (isGone_ && !wrong.empty()), service + (isGone ? ": " + wrong : ""));
  if (wrong.empty()) return {StatusDone, {}};
  return {answer.WasReached ? StatusNothingDone : StatusNoConnection, service + ": " + wrong};
}

// A row that cannot be read is told once for as long as it is listed.
ServiceAlertsSummary ServiceAlerts::Take(const std::string& list, const AlertsPageRequest& request,
                                         AlertCollection& alerts, CallsignCollection& knownActivators) {
  ServiceAlertsSummary summary;
  const auto read = [&](const PageReadRequest& pageRequest, const ActivationTaker& take) {
    summary = ReadServiceAlerts(list, pageRequest, take);
    return summary.Found;
  };
  TakeAnnouncedAlerts(host_, read, request, alerts, knownActivators);
  for (const auto& row : summary.Broken) {
    if (std::ranges::find(toldBroken_, row) == toldBroken_.end())
      LogEvent(host_, std::string(Procedure) + " - A row without an activation was skipped: " + row);
  }
  toldBroken_ = summary.Broken;
  return summary;
}

// A deletion need not change the epoch.
bool ServiceAlerts::IsListOld() const {
  return list_.empty() || host_.Time.Now() - listedAt_ >= LongestLife;
}

void ServiceAlerts::Decide(const std::string& list, bool isUsed) {
  if (!isUsed) return client_.Reject();
  list_ = list;
  listedAt_ = host_.Time.Now();
  client_.Accept();
}

void ServiceAlerts::NoteGone(bool isGone, const std::string& words) {
  if (std::exchange(isGone_, isGone) == isGone) return;
  LogEvent(host_, std::string(Procedure) +
                      (isGone ? " - Sotawatch feed gone, " : " - Sotawatch feed back, ") + words);
}

}  // namespace brelwin
