#include "plain_alerts_reader.h"

#include <memory>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "core/event_log.h"
#include "radio/dates.h"
#include "taking.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::int32_t LongWindowInMinutes = 120;

// "Wednesday 25th November 2026": the day is all that differs.
DateTime DateIn(std::string_view heading) {
  TakeUntil(heading, "day ");
  return *DateTimeFromCalendar({2026, 11, NumberIn<int>(heading), 0, 0, 0});
}

void SetTime(SOTAAlert& alert, DateTime date, std::string_view dateText, std::string_view time) {
  const auto seconds = (NumberIn<int>(time) * 60 + NumberIn<int>(time.substr(3))) * 60;
  alert.UTCAlertDate = date;
  alert.UTCAlertDateStr = dateText;
  alert.UTCAlertTimeStr = time;
  alert.UTCAlertTime = AddSeconds(DayZero(), seconds);
  alert.UTCAlertDateAndTime = AddSeconds(date, seconds);
}

// "Scafell Pike, 978m, 10 points."
void SetSummit(SOTAAlert& alert, std::string_view text) {
  alert.SummitDescription = text.substr(0, text.rfind(' '));
  alert.SummitName = TakeUntil(text, ", ");
  alert.SummitElevationInMeters = NumberIn<std::int32_t>(TakeUntil(text, ", "));
  alert.SummitPoints = NumberIn<std::int16_t>(text);
}

std::string Decoded(std::string_view text) {
  if (!Contains(text, "&")) return std::string(text);
  return Replace(Replace(text, "&quot;", "\""), "&amp;", "&");
}

// Takes the table apart, but for the time, which it gives back.
std::string_view TakeTable(std::string_view& page, SOTAAlert& alert) {
  TakeUntil(page, "</strong> ");
  alert.OperatorName = TakeUntil(page, "<");
  TakeUntil(page, "</strong> ");
  SetSummit(alert, TakeUntil(page, "'"));
  TakeUntil(page, "<strong>");
  const auto time = TakeUntil(page, "<");
  TakeUntil(page, "<strong>");
  alert.AnnouncedCallsign = TakeUntil(page, "<");
  TakeUntil(page, "\"map\">");
  alert.SummitDesignator = TakeUntil(page, "<");
  TakeUntil(page, "<td>");
  alert.FrequencyModes = TakeUntil(page, "<");
  TakeUntil(page, "\"comment\">");
  alert.Comment = Decoded(TakeUntil(page, "<"));
  TakeUntil(page, "(Posted by ");
  alert.Spotter = TakeUntil(page, ")");
  TakeUntil(page, "</table>\n");
  return time;
}

std::string KeyOf(const SOTAAlert& alert, std::string_view dateText, bool isCustom) {
  std::string key(dateText);
  key.append(" ").append(alert.UTCAlertTimeStr).append(":00_").append(alert.stationBaseCallsign);
  key.append("_").append(alert.SummitDesignator).append("_");
  if (isCustom) return key + "!CUSTOM_WINDOW!";
  auto letters = alert.Comment.substr(0, 20);
  std::erase(letters, ' ');
  return key.append(FirstCharacters(letters, 10));
}

void AppendData(std::string& text, const SOTAAlert& alert, std::string_view dateText) {
  text.append(dateText).append(" ").append(alert.UTCAlertTimeStr).append(":00");
  for (const auto* field :
       {&alert.UTCAlertTimeStr, &alert.Station, &alert.stationBaseCallsign, &alert.SummitDesignator,
        &alert.OperatorName, &alert.Comment, &alert.Spotter, &alert.FrequencyModes})
    text.append("||").append(*field);
  text.append("||0||").append(std::to_string(alert.MaxMinutesAfterAlertTime)).append("||0||");
  text.append(alert.AlertKey);
}

void Withdraw(AlertPointer alert, std::string_view dateText, Host& host, AlertCollection& alerts) {
  LogEvent(host, "GetAlertsFromSotawatchHTMLPage - A cancelled alert was not saved:");
  std::string data;
  AppendData(data, *alert, dateText);
  LogEvent(host, data);
  alerts.NoteWithdrawn(std::move(alert), Withdrawal::Cancelled);
}

void Keep(const AlertPointer& alert, bool isCustom, std::string_view dateText, PlainAlerts& read) {
  if (!read.Alerts.Add(alert) || !isCustom) return;
  read.Modifications.append("ADD||");
  AppendData(read.Modifications, *alert, dateText);
  read.Modifications.append(LineEnd);
}

}  // namespace

PlainAlerts ReadMadeAlerts(std::string_view page, const std::unordered_set<std::string>& withLongWindow,
                           Host& host, CallsignCollection& knownActivators) {
  PlainAlerts read;
  DateTime date;
  std::string dateText;
  const auto now = host.Time.LocalNow();
  while (!page.empty()) {
    if (page.starts_with("<p>")) {
      const auto heading = TakeUntil(page, "\n");
      date = DateIn(heading);
      dateText = "2026-11-" + std::to_string(CalendarFromDateTime(date).Day);
    }
    const auto made = std::make_shared<SOTAAlert>();
    auto& alert = *made;
    SetTime(alert, date, dateText, TakeTable(page, alert));
    alert.LocalDateAndTimeRetrieved = now;
    alert.Station = alert.stationBaseCallsign = BaseOf(alert.AnnouncedCallsign);
    const bool isCustom = withLongWindow.contains(alert.Station) || alert.Comment.ends_with(" S+2");
    alert.MaxMinutesAfterAlertTime = isCustom ? LongWindowInMinutes : 0;
    alert.AlertKey = alert.ID = KeyOf(alert, dateText, isCustom);
    if (alert.Comment.ends_with(" cancelled"))
      Withdraw(made, dateText, host, read.Alerts);
    else
      Keep(made, isCustom, dateText, read);
  }
  for (const auto& [key, station] : read.Alerts.Stations()) knownActivators.Add(station, station);
  read.Alerts.SetReadAt(now);
  return read;
}

}  // namespace brelwin::benchmarks
