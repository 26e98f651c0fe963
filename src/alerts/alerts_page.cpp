#include "alerts/alerts_page.h"

#include "alerts/alert_key.h"
#include "alerts/alert_window.h"
#include "alerts/alerts_page_reader.h"
#include "alerts/modifications.h"
#include "alerts/withdrawal.h"
#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/internet_transfer.h"
#include "core/trap.h"
#include "radio/callsign.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::string_view Procedure = "GetAlertsFromSotawatchHTMLPage";
constexpr std::int32_t Success = -1;
constexpr std::int32_t NothingRead = 0;
constexpr std::int32_t NotFetched = -100;

void LogMessage(Host& host, std::string_view message) {
  LogEvent(host, std::string(Procedure).append(" - ").append(message));
}

// Collects the alerts of one page.
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

// Whatever the server promised of the length: behind the closing tag nothing is missing.
bool IsWhole(std::string_view page) {
  constexpr std::string_view ClosingTag = "</html>";
  const auto end = page.find_last_not_of(" \t\r\n") + 1;
  return end >= ClosingTag.size() &&
         EqualsIgnoringCase(page.substr(end - ClosingTag.size(), ClosingTag.size()), ClosingTag);
}

void LearnActivators(Host& host, const CallsignCollection& stations, CallsignCollection& knownActivators) {
  constexpr std::size_t ShortestCallsign = 3;
  std::vector<std::string> learned;
  for (const auto& [key, station] : stations) {
    if (CharacterCount(station) >= ShortestCallsign && knownActivators.Add(station, station))
      learned.push_back(station);
  }
  const auto list = InProgramFolder(host, "SOTAActivators.txt");
  if (FileExists(host, list)) AppendCallsigns(host, list, learned);
}

void LogThatNothingWasParsed(Host& host, std::size_t bodyLength) {
  LogEvent(host, "");
  LogMessage(host, "Alert HTML was downloaded from Sotawatch (" + std::to_string(bodyLength) +
                       " bytes) but NO alerts were successfully parsed.");
}

std::int32_t TakePage(Host& host, std::string_view text, std::size_t bodyLength,
                      const AlertsPageRequest& request, AlertCollection& alerts,
                      CallsignCollection& knownActivators, std::string& errorText) {
  const auto utcNow = UTCNow(host.Time);
  auto modifications = Modifications::Load(host, "", utcNow, request.DefaultAfterWindow);
  Scrape scrape(host, modifications);
  const auto page =
      ReadAlertsPage(text, {utcNow, host.Time.LocalNow(), request.MaximumHoursAhead},
                     [&scrape](AnnouncedActivation&& activation) { scrape.Take(std::move(activation)); });
  if (page.NumberOfActivations == 0) LogThatNothingWasParsed(host, bodyLength);
  modifications.Save(host);
  if (!page.HasDays) {
    errorText = "The page holds no day of alerts";
    return Success;
  }
  alerts = scrape.Result();
  alerts.SetReadAt(host.Time.LocalNow());
  modifications.ApplyTo(alerts);
  LearnActivators(host, alerts.Stations(), knownActivators);
  return Success;
}

}  // namespace

std::int32_t GetAlertsFromSotawatchHTMLPage(Host& host, const AlertsPageRequest& request,
                                            AlertCollection& alerts, CallsignCollection& knownActivators,
                                            std::string& errorText) {
  errorText.clear();
  InternetTransfer transfer(host, DuringTransfer::OthersMayStart);
  const auto page = transfer.OpenURL(request.Url);
  if (!transfer.LastStatus()) {
    errorText = transfer.LastErrorMessage();
    return NotFetched;
  }
  if (host.ShuttingDown) return NothingRead;  // what came before the end is no whole page
  if (!transfer.LastTransportError().empty() && !IsWhole(page)) {  // the alerts behind the break are unknown
    errorText = "The page broke off: " + transfer.LastTransportError();
    LogMessage(host, errorText);
    return NothingRead;
  }
  return TakeAlertsFromPage(host, page, transfer.LastBodyLength(), request, alerts, knownActivators,
                            errorText);
}

std::int32_t TakeAlertsFromPage(Host& host, std::string_view page, std::size_t bodyLength,
                                const AlertsPageRequest& request, AlertCollection& alerts,
                                CallsignCollection& knownActivators, std::string& errorText) {
  errorText.clear();
  if (page.empty()) {
    LogMessage(host, "Attempted to download Alert HTML from Sotawatch but ZERO bytes received.");
    errorText = "The page came empty";
    return NothingRead;
  }
  const auto result = LogErrors(host, Procedure, NothingRead, [&] {
    return TakePage(host, page, bodyLength, request, alerts, knownActivators, errorText);
  });
  if (result == NothingRead) errorText = "An error ended the reading";
  return result;
}

}  // namespace brelwin
