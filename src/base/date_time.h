// A naive date and time to the second: what a clock on the wall shows, without a zone. Whether it is local
// time or UTC is said by the name of the field that holds it; "no time" is an empty std::optional.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>

namespace brelwin {

struct DateTime {
  std::int64_t Seconds = 0;  // since 1 January 1970, 00:00:00, on the proleptic Gregorian calendar

  auto operator<=>(const DateTime&) const = default;
};

struct CalendarTime {
  int Year = 1970;
  int Month = 1;   // 1 to 12
  int Day = 1;     // 1 to 31
  int Hour = 0;    // 0 to 23
  int Minute = 0;  // 0 to 59
  int Second = 0;  // 0 to 59
};

// The date and time of these calendar parts; empty when a part is out of range or the day does not exist in
// its month. Years run from 100 to 9999.
std::optional<DateTime> DateTimeFromCalendar(const CalendarTime& parts);

// The calendar parts of a date and time.
CalendarTime CalendarFromDateTime(DateTime time);

DateTime AddSeconds(DateTime time, std::int64_t seconds);
DateTime AddMinutes(DateTime time, std::int64_t minutes);

// Whole minutes of elapsed time from `from` to `to`, truncated toward zero; negative when `to` is the
// earlier.
std::int64_t MinutesBetween(DateTime from, DateTime to);

}  // namespace brelwin
