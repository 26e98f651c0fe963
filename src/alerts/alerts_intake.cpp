#include "alerts/alerts_intake.h"

#include "alerts/alert_window.h"
#include "alerts/modifications.h"
#include "alerts/sota_alert.h"
#include "core/event_log.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "spots/known_activators.h"

namespace brelwin {
namespace {

void LogMessage(Host& host, std::string_view message) {
  LogEvent(host, std::string("GetAlertsFromSotawatchHTMLPage - ").append(message));
}

// Collects the alerts of one reading.
class Scrape {
 public:
  Scrape(Host& host, Modifications& modifications)
      : host_(host), overrides_(DurationOverrides::Load(host)), modifications_(modifications) {}

  void Take(AnnouncedActivation&& activation) {
    const auto& stations = activation.Stations;
    for (std::size_t i = 0; i + 1 < stations.size(); ++i)
      TakeStation(std::make_shared<SOTAAlert>(activation.Alert), stations[i]);
    if (!stations.empty())
      TakeStation(std::make_shared<SOTAAlert>(std::move(activation.Alert)), stations.back());
  }

  AlertCollection&& Result() { return std::move(alerts_); }

 private:
  void TakeStation(std::shared_ptr<SOTAAlert> alert, const std::string& station) {
    alert->Station = station;
    alert->stationBaseCallsign = GetBaseCallsign(station);
    const auto window = WindowOfAlert(overrides_.Of(alert->stationBaseCallsign), alert->Comment);
    alert->MaxMinutesBeforeAlertTime = window.Window.MinutesBefore;
    alert->MaxMinutesAfterAlertTime = window.Window.MinutesAfter;
    alert->AlertKey = alert->ID = window.IsCustom ? CustomWindowKey(*alert) : CommentKey(*alert);
    const auto withdrawal = LogWithdrawal(*alert);
    if (withdrawal == Withdrawal::None) return Keep(alert, window.IsCustom);
    // An activator who writes over the words that gave the alert its own window must not come back through
    // the entry that they made.
    modifications_.RemoveEntries(CustomWindowKey(*alert));
    alerts_.NoteWithdrawn(std::move(alert), withdrawal);
  }

  // Words of both kinds are both logged; that nobody will be on the air is what is told of the alert.
  Withdrawal LogWithdrawal(const SOTAAlert& alert) {
    const bool isCancelled = HoldsCancellation(alert.Comment);
    const bool isOptedOut = HoldsOptOutWord(alert.Comment);
    if (isCancelled) LogNotSaved(alert, "A cancelled alert was not saved:");
    if (isOptedOut) LogNotSaved(alert, "An alert containing NOTARNLINK/RBNN was not saved:");
    if (isCancelled) return Withdrawal::Cancelled;
    return isOptedOut ? Withdrawal::OptedOut : Withdrawal::None;
  }

  void LogNotSaved(const SOTAAlert& alert, std::string_view message) {
    LogMessage(host_, message);
    LogEvent(host_, DelimitedData(alert));
  }

  // A deletion in the file is the activator's later word, so it is left alone.
  void Keep(const AlertPointer& alert, bool hasCustomWindow) {
    if (!alerts_.Add(alert) || !hasCustomWindow || modifications_.HoldsDeletion(alert->ID)) return;
    modifications_.RemoveEntries(alert->ID);
    modifications_.AddEntry(ModificationCommand::Add, *alert);
  }

  Host& host_;
  DurationOverrides overrides_;
  Modifications& modifications_;
  AlertCollection alerts_;
};

void LearnActivators(Host& host, const CallsignCollection& stations, CallsignCollection& knownActivators) {
  std::vector<std::string> learned;
  for (const auto& [key, station] : stations)
    LearnActivator(station, ShortestAnnouncedCallsign, knownActivators, learned);
  SaveLearnedActivators(host, learned, MissingList::StaysMissing);
}

}  // namespace

AlertsPageSummary TakeAnnouncedAlerts(Host& host, const AlertsReader& read, const AlertsPageRequest& request,
                                      AlertCollection& alerts, CallsignCollection& knownActivators) {
  const auto utcNow = UTCNow(host.Time);
  auto modifications = Modifications::Load(host, "", utcNow, request.DefaultAfterWindow);
  Scrape scrape(host, modifications);
  const auto summary =
      read({utcNow, host.Time.LocalNow(), request.MaximumHoursAhead},
           [&scrape](AnnouncedActivation&& activation) { scrape.Take(std::move(activation)); });
  modifications.Save(host);
  if (!summary.HasDays) return summary;
  alerts = scrape.Result();
  alerts.SetReadAt(host.Time.LocalNow());
  modifications.ApplyTo(alerts);
  LearnActivators(host, alerts.Stations(), knownActivators);
  return summary;
}

}  // namespace brelwin
