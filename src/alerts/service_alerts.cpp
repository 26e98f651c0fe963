#include "alerts/service_alerts.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "alerts/page_markup.h"
#include "base/encoding.h"
#include "core/event_log.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/web_address.h"
#include "spots/service_rows.h"
#include "spots/summit_details.h"

namespace brelwin {

namespace {

constexpr std::size_t MostBroken = 20;
constexpr std::size_t LongestBrokenText = 100;
constexpr std::int64_t SecondsPerMinute = 60;

std::string Text(const ServiceRow& row, std::string_view name) {
  return PlainText(row.Text(name));
}

// To the minute, as they are announced.
void SetTime(SOTAAlert& alert, std::optional<DateTime> time) {
  if (!time) return;
  SetAlertDateAndTime(alert, AddSeconds(*time, -(time->Seconds % SecondsPerMinute)));
  alert.UTCAlertTimeStr = ClockText(*time);
}

void SetSummit(SOTAAlert& alert, const ServiceRow& row) {
  alert.SummitDesignator = SummitReference(Text(row, "associationCode"), Text(row, "summitCode"));
  const auto details = ReadSummitDetails(Text(row, "summitDetails"));
  alert.SummitDescription = SummitDescriptionText(details);
  alert.SummitName = details.Name;
  alert.SummitElevationInMeters = details.ElevationInMeters;
  alert.SummitPoints = details.Points;
}

AnnouncedActivation ActivationOf(const ServiceRow& row, DateTime localNow) {
  AnnouncedActivation activation;
  auto& alert = activation.Alert;
  SetTime(alert, row.Time("dateActivated"));
  SetSummit(alert, row);
  alert.OperatorName = Text(row, "activatorName");
  alert.Comment = Text(row, "comments");
  alert.Spotter = Text(row, "posterCallsign");
  alert.FrequencyModes = Text(row, "frequency");
  alert.LocalDateAndTimeRetrieved = localNow;
  SetStations(activation, Text(row, "activatingCallsign"));
  return activation;
}

class AlertRows {
 public:
  AlertRows(const PageReadRequest& request, ServiceAlertsSummary& summary)
      : request_(request), summary_(summary) {}

  void Read(std::string_view text) {
    const auto row = ReadServiceRow(text);
    if (!row) return NoteBroken(text);
    summary_.SaysGone = summary_.SaysGone || row->IsSentinel();
    if (row->IsSentinel()) return;
    auto activation = ActivationOf(*row, request_.LocalNow);
    if (activation.Stations.empty()) return NoteBroken(text);
    summary_.Found.HasDays = true;
    if (!IsTooFarAhead(activation.Alert, request_)) activations_.push_back(std::move(activation));
  }

  void HandOver(const ActivationTaker& take) {
    std::ranges::stable_sort(activations_, {}, [](const auto& one) { return one.Alert.UTCAlertDateAndTime; });
    summary_.Found.NumberOfActivations = activations_.size();
    for (auto& activation : activations_) take(std::move(activation));
  }

 private:
  void NoteBroken(std::string_view text) {
    if (summary_.Broken.size() < MostBroken)
      summary_.Broken.emplace_back(FirstCharacters(PlainText(text), LongestBrokenText));
  }

  const PageReadRequest& request_;
  ServiceAlertsSummary& summary_;
  std::vector<AnnouncedActivation> activations_;
};

}  // namespace

ServiceAlertsSummary ReadServiceAlerts(std::string_view answer, const PageReadRequest& request,
                                       const ActivationTaker& take) {
  ServiceAlertsSummary summary;
  ServiceRowScanner scanner(answer);
  AlertRows rows(request, summary);
  while (const auto row = scanner.NextRow()) rows.Read(*row);
  summary.IsWhole = scanner.IsList() && (scanner.ReachedEnd() || scanner.HasTooMany());
  summary.Found.HasDays = summary.Found.HasDays && summary.IsWhole;
  if (summary.IsWhole) rows.HandOver(take);
  return summary;
}

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
