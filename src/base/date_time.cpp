#include "base/date_time.h"

#include <chrono>

namespace brelwin {
namespace {

constexpr std::int64_t SecondsPerDay = 86400;

bool IsTimeOfDay(const CalendarTime& parts) {
  return parts.Hour >= 0 && parts.Hour < 24 && parts.Minute >= 0 && parts.Minute < 60 && parts.Second >= 0 &&
         parts.Second < 60;
}

}  // namespace

std::optional<DateTime> DateTimeFromCalendar(const CalendarTime& parts) {
  if (parts.Year < 100 || parts.Year > 9999 || parts.Month < 1 || parts.Day < 1 || !IsTimeOfDay(parts))
    return {};
  const std::chrono::year_month_day date{std::chrono::year(parts.Year),
                                         std::chrono::month(static_cast<unsigned>(parts.Month)),
                                         std::chrono::day(static_cast<unsigned>(parts.Day))};
  if (!date.ok()) return {};
  const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  const int secondOfDay = parts.Hour * 3600 + parts.Minute * 60 + parts.Second;
  return DateTime{days * SecondsPerDay + secondOfDay};
}

CalendarTime CalendarFromDateTime(DateTime time) {
  auto days = time.Seconds / SecondsPerDay;
  auto seconds = static_cast<int>(time.Seconds % SecondsPerDay);
  if (seconds < 0) {
    seconds += static_cast<int>(SecondsPerDay);
    --days;
  }
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(static_cast<int>(days)))};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

DateTime AddSeconds(DateTime time, std::int64_t seconds) {
  return {time.Seconds + seconds};
}

DateTime AddMinutes(DateTime time, std::int64_t minutes) {
  return AddSeconds(time, minutes * 60);
}

std::int64_t MinutesBetween(DateTime from, DateTime to) {
  return (to.Seconds - from.Seconds) / 60;
}

}  // namespace brelwin
