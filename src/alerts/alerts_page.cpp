#include "alerts/alerts_page.h"

#include "base/text.h"
#include "core/event_log.h"
#include "core/internet_transfer.h"
#include "core/status_codes.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr std::string_view Procedure = "GetAlertsFromSotawatchHTMLPage";

void LogMessage(Host& host, std::string_view message) {
  LogEvent(host, std::string(Procedure).append(" - ").append(message));
}

// Whatever the server promised of the length: behind the closing tag nothing is missing.
bool IsWhole(std::string_view page) {
  constexpr std::string_view ClosingTag = "</html>";
  const auto end = page.find_last_not_of(" \t\r\n") + 1;
  return end >= ClosingTag.size() &&
         EqualsIgnoringCase(page.substr(end - ClosingTag.size(), ClosingTag.size()), ClosingTag);
}

void LogThatNothingWasParsed(Host& host, std::size_t bodyLength) {
  LogEvent(host, "");
  LogMessage(host, "Alert HTML was downloaded from Sotawatch (" + std::to_string(bodyLength) +
                       " bytes) but NO alerts were successfully parsed.");
}

std::int32_t TakePage(Host& host, std::string_view text, std::size_t bodyLength,
                      const AlertsPageRequest& request, AlertCollection& alerts,
                      CallsignCollection& knownActivators, std::string& errorText) {
  const auto read = [&](const PageReadRequest& pageRequest, const ActivationTaker& take) {
    const auto page = ReadAlertsPage(text, pageRequest, take);
    if (page.NumberOfActivations == 0) LogThatNothingWasParsed(host, bodyLength);
    return page;
  };
  const auto page = TakeAnnouncedAlerts(host, read, request, alerts, knownActivators);
  if (!page.HasDays) errorText = "The page holds no day of alerts";
  return StatusDone;
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
    return StatusNoConnection;
  }
  if (host.ShuttingDown) return StatusNothingDone;  // what came before the end is no whole page
  if (!transfer.LastTransportError().empty() && !IsWhole(page)) {  // the alerts behind the break are unknown
    errorText = "The page broke off: " + transfer.LastTransportError();
    LogMessage(host, errorText);
    return StatusNothingDone;
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
    return StatusNothingDone;
  }
  const auto result = LogErrors(host, Procedure, StatusNothingDone, [&] {
    return TakePage(host, page, bodyLength, request, alerts, knownActivators, errorText);
  });
  if (result == StatusNothingDone) errorText = "An error ended the reading";
  return result;
}

}  // namespace brelwin
