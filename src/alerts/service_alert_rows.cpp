#include "alerts/service_alert_rows.h"

#include <algorithm>
#include <utility>

#include "alerts/page_markup.h"
#include "base/encoding.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/frequency.h"
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

}  // namespace brelwin
