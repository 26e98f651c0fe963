#include "cycle/alerts_refresh.h"

#include <cstdlib>
#include <string>
#include <utility>

#include "alerts/alerts_page.h"
#include "alerts/alerts_report.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/status_codes.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

void NoteFailure(Announcements& announcements, const std::string& errorText) {
  auto& failure = announcements.NotRead;
  if (errorText.empty()) {
    failure = {};
    return;
  }
  failure.Text = errorText;
  if (!failure.Since) failure.Since = announcements.World.Time.LocalNow();
}

// The page may take its time, and the list does not wait for it: the timer runs meanwhile, whoever stopped
// it.
class TicksGoOn {
 public:
  TicksGoOn(const Host& host, CheckTimer& timer) : host_(host), timer_(timer), before_(timer.Enabled) {
    timer_.Enabled = !host_.ShuttingDown;
  }
  TicksGoOn(const TicksGoOn&) = delete;
  TicksGoOn& operator=(const TicksGoOn&) = delete;
  ~TicksGoOn() { timer_.Enabled = before_ && !host_.ShuttingDown; }

 private:
  const Host& host_;
  CheckTimer& timer_;
  bool before_;
};

std::int32_t ReadAlertsOfService(Announcements& announcements, const AlertReading& reading,
                                 const AlertsPageRequest& request, std::string& errorText) {
  const auto obstacle = LookForObstacle(reading.Sources);
  if (obstacle == ServiceObstacle::None)
    return announcements.ByService.Refresh(request, announcements.Alerts, reading.KnownActivators, errorText);
  errorText = ObstacleInWords(obstacle, request.Url);
  return StatusNoConnection;
}

std::int32_t ReadAlertsPage(Announcements& announcements, const AlertReading& reading) {
  const TicksGoOn ticks(announcements.World, announcements.tmrCheckSpots);
  const auto afterWindow = WholeNumber(announcements.Tab.txtRBNMaxMinutesAfterAlertTime.Text.Get());
  const bool isByService = SourceInUse(reading.Sources) == SpotSource::Service;
  const auto& addresses = announcements.Config.Addresses;
  const AlertsPageRequest request{isByService ? addresses.SotawatchAPI : addresses.SotawatchAlerts,
                                  afterWindow, announcements.Config.MaxAlertAgeInHours};
  std::string errorText;
  const auto result = isByService
                          ? ReadAlertsOfService(announcements, reading, request, errorText)
                          : GetAlertsFromSotawatchHTMLPage(announcements.World, request, announcements.Alerts,
                                                           reading.KnownActivators, errorText);
  if (result == StatusDone) announcements.Source = isByService ? "the JSON service" : "the alerts page";
  NoteFailure(announcements, errorText);
  if (result == StatusDone) announcements.lblNoSotawatchConnection.Visible = false;
  return result;
}

// An instant that has not come yet is long past: the first check finds everything due.
bool HasPassed(const std::optional<Instant>& since, double minutes, Instant now) {
  return !since || static_cast<double>(MinutesBetween(*since, now)) > minutes;
}

std::int32_t RefreshInterval(const RBNTab& tab) {
  return WholeNumber(tab.txtSOTAAlertsRefreshInterval.Text.Get());
}

void ArchiveWhenDue(Announcements& announcements) {
  auto& host = announcements.World;
  const auto& box = announcements.Tab.txtSOTAWatchAlertArchivingIntervalInHours;
  const auto hours = ToSingle(ToDouble(box.Text.Get()));
  const auto now = host.Time.Now();
  if (hours <= 0 || !HasPassed(announcements.LastArchiveTime, static_cast<double>(hours) * 60, now)) return;
  announcements.LastArchiveTime = now;
  const auto name = std::string(AlertsArchiveStem) + CompactMinutesText(host.Time.LocalNow()) + ".txt";
  WriteAlertsReport(host, InProgramFolder(host, name), announcements.Alerts);
}

}  // namespace

Announcements::Announcements(Host& host, Screen& screen, const Configuration& configuration,
                             CommandMemory memory, ServiceSchedule::Random chance)
    : World(host),
      Tab(screen.RBN),
      lblNoSotawatchConnection(screen.Spots.lblNoSotawatchConnection),
      tmrCheckSpots(screen.tmrCheckSpots),
      Config(configuration),
      Service(host, std::move(chance), DuringTransfer::OthersMayStart),
      Commands(host, std::move(memory)) {}

void RefreshAlertsWhenDue(Announcements& announcements, const AlertReading& reading) {
  const auto& host = announcements.World;
  if (host.ShuttingDown) return;
  if (!HasPassed(announcements.LastRefreshTime, RefreshInterval(announcements.Tab), host.Time.Now())) return;
  const bool succeeded = ReadAlertsPage(announcements, reading) == StatusDone;
  if (host.ShuttingDown && !succeeded) return;  // the page was not read: the reports stay as they are
  announcements.lblNoSotawatchConnection.Visible =
      !succeeded && announcements.Tab.chkReverseBeaconSpotsEnabled.Value;
  if (succeeded) {
    announcements.LastRefreshTime = host.Time.Now();
    announcements.Commands.CarryOutWaiting(reading.Scene);
  }
  WriteAlertsReport(announcements.World, {}, announcements.Alerts);
  ArchiveWhenDue(announcements);
}

void ReadAlertsForCommands(Announcements& announcements, const AlertReading& reading) {
  const auto& host = announcements.World;
  if (host.ShuttingDown || !announcements.Commands.AreWaiting()) return;
  auto& last = announcements.LastReadingForCommands;
  if (!HasPassed(last, RefreshInterval(announcements.Tab), host.Time.Now())) return;
  last = host.Time.Now();
  if (ReadAlertsPage(announcements, reading) == StatusDone)
    announcements.Commands.CarryOutWaiting(reading.Scene);
}

}  // namespace brelwin
