#include "cycle/alerts_refresh.h"

#include <cstdlib>
#include <string>

#include "alerts/alerts_page.h"
#include "alerts/alerts_report.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/status_codes.h"
#include "cycle/spots_source.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

void NoteFailure(MainWindow& window, const std::string& errorText) {
  auto& failure = window.AlertsNotRead;
  if (errorText.empty()) {
    failure = {};
    return;
  }
  failure.Text = errorText;
  if (!failure.Since) failure.Since = window.World.Time.LocalNow();
}

// The page may take its time, and the list does not wait for it: the timer runs meanwhile, whoever stopped
// it.
class TicksGoOn {
 public:
  explicit TicksGoOn(MainWindow& window) : window_(window), before_(window.Controls.tmrCheckSpots.Enabled) {
    window_.Controls.tmrCheckSpots.Enabled = !window_.World.ShuttingDown;
  }
  TicksGoOn(const TicksGoOn&) = delete;
  TicksGoOn& operator=(const TicksGoOn&) = delete;
  ~TicksGoOn() { window_.Controls.tmrCheckSpots.Enabled = before_ && !window_.World.ShuttingDown; }

 private:
  MainWindow& window_;
  bool before_;
};

std::int32_t ReadAlertsOfService(MainWindow& window, const AlertsPageRequest& request,
                                 std::string& errorText) {
  const auto obstacle = LookForObstacle(window);
  if (obstacle == ServiceObstacle::None)
    return window.AnnouncedByService.Refresh(request, window.Alerts, window.KnownActivators, errorText);
  errorText = ObstacleInWords(obstacle, request.Url);
  return StatusNoConnection;
}

std::int32_t ReadAlertsPage(MainWindow& window) {
  const TicksGoOn ticks(window);
  const auto afterWindow = WholeNumber(window.Controls.RBN.txtRBNMaxMinutesAfterAlertTime.Text.Get());
  const bool isByService = SourceInUse(window) == SpotSource::Service;
  const auto& addresses = window.Config.Addresses;
  const AlertsPageRequest request{isByService ? addresses.SotawatchAPI : addresses.SotawatchAlerts,
                                  afterWindow, window.Config.MaxAlertAgeInHours};
  std::string errorText;
  const auto result = isByService ? ReadAlertsOfService(window, request, errorText)
                                  : GetAlertsFromSotawatchHTMLPage(window.World, request, window.Alerts,
                                                                   window.KnownActivators, errorText);
  if (result == StatusDone) window.AlertsSource = isByService ? "the JSON service" : "the alerts page";
  NoteFailure(window, errorText);
  if (result == StatusDone) window.Controls.Spots.lblNoSotawatchConnection.Visible = false;
  return result;
}

AlertCommandScene SceneOf(MainWindow& window, const SpotFilter& filter) {
  return {window.Alerts, filter,
          [&window](const Spot& spot) { return window.SpotGateway.Posted.Holds(spot); },
          window.Config.LogAlertsAfterSelfSpots};
}

// An instant that has not come yet is long past: the first check finds everything due.
bool HasPassed(const std::optional<Instant>& since, double minutes, Instant now) {
  return !since || static_cast<double>(MinutesBetween(*since, now)) > minutes;
}

std::int32_t RefreshInterval(const MainWindow& window) {
  return WholeNumber(window.Controls.RBN.txtSOTAAlertsRefreshInterval.Text.Get());
}

void ArchiveWhenDue(MainWindow& window) {
  const auto& box = window.Controls.RBN.txtSOTAWatchAlertArchivingIntervalInHours;
  const auto hours = ToSingle(ToDouble(box.Text.Get()));
  const auto now = window.World.Time.Now();
  if (hours <= 0 || !HasPassed(window.LastAlertsArchiveTime, static_cast<double>(hours) * 60, now)) return;
  window.LastAlertsArchiveTime = now;
  const auto name =
      std::string(AlertsArchiveStem) + CompactMinutesText(window.World.Time.LocalNow()) + ".txt";
  WriteAlertsReport(window.World, InProgramFolder(window.World, name), window.Alerts);
}

}  // namespace

void RefreshAlertsWhenDue(MainWindow& window, const SpotFilter& filter) {
  if (window.World.ShuttingDown) return;
  if (!HasPassed(window.LastAlertsRefreshTime, RefreshInterval(window), window.World.Time.Now())) return;
  const bool succeeded = ReadAlertsPage(window) == StatusDone;
  if (window.World.ShuttingDown && !succeeded) return;  // the page was not read: the reports stay as they are
  window.Controls.Spots.lblNoSotawatchConnection.Visible =
      !succeeded && window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value;
  if (succeeded) {
    window.LastAlertsRefreshTime = window.World.Time.Now();
    window.Commands.CarryOutWaiting(SceneOf(window, filter));
  }
  WriteAlertsReport(window.World, {}, window.Alerts);
  ArchiveWhenDue(window);
}

void ReadAlertsForCommands(MainWindow& window, const SpotFilter& filter) {
  if (window.World.ShuttingDown || !window.Commands.AreWaiting()) return;
  auto& last = window.LastReadingForCommands;
  if (!HasPassed(last, RefreshInterval(window), window.World.Time.Now())) return;
  last = window.World.Time.Now();
  if (ReadAlertsPage(window) == StatusDone) window.Commands.CarryOutWaiting(SceneOf(window, filter));
}

void CarryOutAlertCommands(MainWindow& window, const SpotCollection& newSpots, const SpotFilter& filter) {
  window.Commands.CarryOut(newSpots, SceneOf(window, filter));
}

}  // namespace brelwin
