#include "radio/dates.h"

#include "radio/month_names.h"

namespace brelwin {
namespace {

// The last two digits of the number, with a leading zero.
void AppendTwoDigits(std::string& text, int number) {
  text.push_back(static_cast<char>('0' + number / 10 % 10));
  text.push_back(static_cast<char>('0' + number % 10));
}

void AppendYear(std::string& text, int year) {
  AppendTwoDigits(text, year / 100);
  AppendTwoDigits(text, year);
}

void AppendDate(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendYear(text, time.Year);
  text.append(separator);
  AppendTwoDigits(text, time.Month);
  text.append(separator);
  AppendTwoDigits(text, time.Day);
}

void AppendMinutes(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendTwoDigits(text, time.Hour);
  text.append(separator);
  AppendTwoDigits(text, time.Minute);
}

void AppendSeconds(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendMinutes(text, time, separator);
  text.append(separator);
  AppendTwoDigits(text, time.Second);
}

}  // namespace

std::string DateTimeText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  std::string text;
  AppendDate(text, parts, "-");
  text.push_back(' ');
  AppendSeconds(text, parts, ":");
  return text;
}

std::string ClockText(DateTime time) {
  std::string text;
  AppendMinutes(text, CalendarFromDateTime(time), ":");
  return text;
}

std::string CompactText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  std::string text;
  AppendDate(text, parts, "");
  AppendSeconds(text, parts, "");
  return text;
}

std::string CompactMinutesText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  std::string text;
  AppendDate(text, parts, "");
  AppendMinutes(text, parts, "");
  return text;
}

std::string MonthFirstText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  std::string text(ShortMonthName(parts.Month));
  text.push_back(' ');
  AppendTwoDigits(text, parts.Day);
  text.push_back(' ');
  AppendYear(text, parts.Year);
  text.push_back(' ');
  AppendSeconds(text, parts, ":");
  return text;
}

std::int32_t TimeZoneOffsetInMinutes(const Clock& clock) {
  const auto zone = clock.GetTimeZoneInformation();
  const bool daylight = zone.Now == TimeZoneInformation::State::Daylight;
  return zone.Bias + (daylight ? zone.DaylightBias : zone.StandardBias);
}

bool GetTimeZoneOffset(const Clock& clock, std::int32_t& hours, std::int32_t& minutes) {
  const auto offset = TimeZoneOffsetInMinutes(clock);
  hours = offset / 60;
  minutes = offset % 60;
  return true;
}

DateTime UTCNow(const Clock& clock) {
  return AddMinutes(clock.LocalNow(), TimeZoneOffsetInMinutes(clock));
}

std::string GetUTCNowText(const Clock& clock) {
  return MonthFirstText(UTCNow(clock));
}

std::optional<DateTime> UTCToLocal(const Clock& clock, std::optional<DateTime> utc) {
  if (!utc) return {};
  return AddMinutes(*utc, -TimeZoneOffsetInMinutes(clock));
}

}  // namespace brelwin
