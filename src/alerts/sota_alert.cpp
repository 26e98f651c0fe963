#include "alerts/sota_alert.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {

namespace {

constexpr std::size_t FieldCount = 13;
constexpr std::size_t NumberOfTexts = 9;  // the first ones

using Fields = std::array<std::string, FieldCount>;

std::string DateText(DateTime date) {
  return DateTimeText(date).substr(0, 10);
}

// The time of day in the form that a time without a date is read in.
DateTime TimeOfDay(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  return AddSeconds(DayZero(), (parts.Hour * 60 + parts.Minute) * 60 + parts.Second);
}

DateTime Midnight(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  return DateTimeFromCalendar({parts.Year, parts.Month, parts.Day, 0, 0, 0}).value_or(time);
}

std::int32_t Truncated(std::string_view number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<double>(ToDouble(number), Limits::min(), Limits::max()));
}

Fields FieldsOf(const SOTAAlert& alert) {
  return {alert.UTCAlertDateAndTime ? DateTimeText(*alert.UTCAlertDateAndTime) : std::string(),
          DelimitedField(alert.UTCAlertTimeStr),
          DelimitedField(alert.Station),
          DelimitedField(alert.stationBaseCallsign),
          DelimitedField(alert.SummitDesignator),
          DelimitedField(alert.OperatorName),
          DelimitedField(alert.Comment),
          DelimitedField(alert.Spotter),
          DelimitedField(alert.FrequencyModes),
          std::to_string(alert.MaxMinutesBeforeAlertTime),
          std::to_string(alert.MaxMinutesAfterAlertTime),
          alert.IsSelfSpotAlert ? "-1" : "0",
          DelimitedField(alert.AlertKey)};
}

std::string Joined(const Fields& fields) {
  std::string line = fields[0];
  for (std::size_t i = 1; i < fields.size(); ++i) line.append(DataDelimiter()).append(fields[i]);
  return line;
}

// Bars that face each other across a delimiter would make one more, and move every field behind them.
void MendFacingBars(Fields& fields) {
  for (std::size_t i = 0; i < NumberOfTexts; ++i) {
    auto& text = fields[i];
    if (text.starts_with('|')) text.front() = '-';
    if (text.ends_with('|')) text.back() = '-';
  }
}

// A bar at the end of the frequencies is split off them and stands before the number that follows.
std::int32_t TakeMinutes(std::string_view number, std::string& frequencies) {
  if (number.starts_with('|')) {
    frequencies.push_back('|');
    number.remove_prefix(1);
  }
  return Truncated(number);
}

}  // namespace

void SetAlertDate(SOTAAlert& alert, std::optional<DateTime> date) {
  alert.UTCAlertDate = date;
  alert.UTCAlertDateStr = date ? DateText(*date) : std::string();
}

void SetAlertDateAndTime(SOTAAlert& alert, DateTime time) {
  alert.UTCAlertDateAndTime = time;
  SetAlertDate(alert, Midnight(time));
  alert.UTCAlertTime = TimeOfDay(time);
}

std::string DelimitedField(std::string_view text) {
  return Replace(text, DataDelimiter(), "-");
}

std::string DelimitedData(const SOTAAlert& alert) {
  auto fields = FieldsOf(alert);
  auto line = Joined(fields);
  if (Split(line, DataDelimiter()).size() == FieldCount) return line;
  MendFacingBars(fields);
  return Joined(fields);
}

bool SetDelimitedData(SOTAAlert& alert, std::string_view line) {
  auto fields = Split(line, DataDelimiter());
  const bool complete = fields.size() >= FieldCount;
  if (IsDateNotNumber(fields[0])) {
    SetAlertDateAndTime(alert, *ReadDateTime(fields[0]));
    if (fields.size() > 1) alert.UTCAlertTimeStr = fields[1];
  }
  const std::array<std::string*, 7> texts = {&alert.Station,          &alert.stationBaseCallsign,
                                             &alert.SummitDesignator, &alert.OperatorName,
                                             &alert.Comment,          &alert.Spotter,
                                             &alert.FrequencyModes};
  for (std::size_t i = 0; i < texts.size() && i + 2 < fields.size(); ++i) *texts[i] = fields[i + 2];
  if (fields.size() > 9) alert.MaxMinutesBeforeAlertTime = TakeMinutes(fields[9], alert.FrequencyModes);
  if (fields.size() > 10) alert.MaxMinutesAfterAlertTime = Truncated(fields[10]);
  if (fields.size() > 11) alert.IsSelfSpotAlert = Truncated(fields[11]) != 0;
  if (complete) alert.ID = alert.AlertKey = fields[12];
  return complete;
}

namespace {

constexpr std::size_t CommentLength = 10;

std::string PageKey(const SOTAAlert& alert, std::string_view lastPart) {
  const auto& time = alert.UTCAlertDateAndTime;
  std::string key = time ? DateTimeText(*time) : std::string();
  key.append("_").append(alert.stationBaseCallsign).append("_").append(alert.SummitDesignator);
  key.append("_").append(lastPart);
  return DelimitedField(key);
}

}  // namespace

std::string CustomWindowKey(const SOTAAlert& alert) {
  return PageKey(alert, "!CUSTOM_WINDOW!");
}

std::string CommentKey(const SOTAAlert& alert) {
  auto letters = alert.Comment;
  std::erase(letters, ' ');
  return PageKey(alert, FirstCharacters(letters, CommentLength));
}

std::string SpotAlertKey(const SOTAAlert& alert) {
  const auto& time = alert.UTCAlertDateAndTime;
  std::string key = "!SPOT_ALERT!_";
  key.append(time ? CompactMinutesText(*time) : std::string());
  key.append("_").append(alert.stationBaseCallsign).append("_").append(alert.SummitDesignator);
  return DelimitedField(key);
}

bool HoldsCancellation(std::string_view comment) {
  const auto upper = UpperCase(comment);
  return Contains(upper, "CANCELLED") || Contains(upper, "CANCELED");
}

bool HoldsOptOutWord(std::string_view comment) {
  auto upper = UpperCase(comment);
  std::erase(upper, ' ');
  return Contains(upper, "RBNN") || Contains(upper, "NOTARNLINK");
}

}  // namespace brelwin
