#include "radio/dates.h"

#include <array>
#include <charconv>

#include "radio/month_names.h"

namespace brelwin {
namespace {

// Appends the number with leading zeros up to the width.
void AppendNumber(std::string& text, int number, std::size_t width) {
  std::array<char, 16> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  const auto length = static_cast<std::size_t>(end - buffer.data());
  if (length < width) text.append(width - length, '0');
  text.append(buffer.data(), length);
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
