#include "radio/dates.h"

#include <algorithm>

#include "radio/month_names.h"

namespace brelwin {
namespace {

void PutTwoDigits(char* at, int number) {
  at[0] = static_cast<char>('0' + number / 10 % 10);
  at[1] = static_cast<char>('0' + number % 10);
}

// "yyyymmddhhmmss".
std::string DigitsOf(const CalendarTime& time) {
  std::string digits(14, '0');
  const auto year = std::max(time.Year, 0);
  PutTwoDigits(&digits[0], year / 100);
  PutTwoDigits(&digits[2], year);
  PutTwoDigits(&digits[4], time.Month);
  PutTwoDigits(&digits[6], time.Day);
  PutTwoDigits(&digits[8], time.Hour);
  PutTwoDigits(&digits[10], time.Minute);
  PutTwoDigits(&digits[12], time.Second);
  return digits;
}

// The pattern with the digits in place of its "#".
std::string FillIn(std::string_view pattern, std::string_view digits) {
  std::string text(pattern);
  auto digit = digits.begin();
  for (char& c : text) {
    if (c == '#') c = *digit++;
  }
  return text;
}

}  // namespace

std::string DateTimeText(DateTime time) {
  return FillIn("####-##-## ##:##:##", CompactText(time));
}

std::string ClockText(DateTime time) {
  return FillIn("##:##", CompactText(time).substr(8));
}

std::string CompactText(DateTime time) {
  return DigitsOf(CalendarFromDateTime(time));
}

std::string CompactMinutesText(DateTime time) {
  return CompactText(time).substr(0, 12);
}

std::string MonthFirstText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  const auto digits = DigitsOf(parts);
  const auto yearBehindDay = digits.substr(6, 2) + digits.substr(0, 4) + digits.substr(8);
  return std::string(ShortMonthName(parts.Month)) + FillIn(" ## #### ##:##:##", yearBehindDay);
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
