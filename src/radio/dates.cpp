#include "radio/dates.h"

#include "radio/month_names.h"

namespace brelwin {
namespace {

// Appends the last digits of the number, with leading zeros.
void AppendNumber(std::string& text, int number, std::size_t digits) {
  text.append(digits, '0');
  for (auto digit = text.rbegin(); number > 0 && digits > 0; ++digit, --digits, number /= 10)
    *digit = static_cast<char>('0' + number % 10);
}

void AppendDate(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendNumber(text, time.Year, 4);
  text.append(separator);
  AppendNumber(text, time.Month, 2);
  text.append(separator);
  AppendNumber(text, time.Day, 2);
}

void AppendMinutes(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendNumber(text, time.Hour, 2);
  text.append(separator);
  AppendNumber(text, time.Minute, 2);
}

void AppendSeconds(std::string& text, const CalendarTime& time, std::string_view separator) {
  AppendMinutes(text, time, separator);
  text.append(separator);
  AppendNumber(text, time.Second, 2);
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
  AppendNumber(text, parts.Day, 2);
  text.push_back(' ');
  AppendNumber(text, parts.Year, 4);
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
