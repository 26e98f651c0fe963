#include "times.h"

#include <array>
#include <chrono>
#include <string_view>

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::array<string_view, 7> Days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<string_view, 12> Months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr std::array<string_view, 7> FullDays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};
constexpr std::array<string_view, 12> FullMonths{"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

string OrdinalSuffix(unsigned day) {
  if (day / 10 == 1) return "th";
  return day % 10 == 1 ? "st" : day % 10 == 2 ? "nd" : day % 10 == 3 ? "rd" : "th";
}

string Padded(std::int64_t number, std::size_t width) {
  const auto digits = std::to_string(number);
  return string(width - std::min(width, digits.size()), '0') + digits;
}

template <class Duration>
string TimeOfDay(std::chrono::sys_time<Duration> time) {
  const std::chrono::hh_mm_ss clock(time - std::chrono::floor<std::chrono::days>(time));
  return Padded(clock.hours().count(), 2) + ':' + Padded(clock.minutes().count(), 2) + ':' +
         Padded(clock.seconds().count(), 2);
}

string MailTime(std::int64_t seconds, string_view zone) {
  const std::chrono::sys_seconds time{std::chrono::seconds(seconds)};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const auto month = static_cast<unsigned>(date.month());
  return string(Days.at(std::chrono::weekday(day).c_encoding())) + ", " +
         Padded(static_cast<unsigned>(date.day()), 2) + ' ' + string(Months.at(month - 1)) + ' ' +
         Padded(static_cast<int>(date.year()), 4) + ' ' + TimeOfDay(time) + ' ' + string(zone);
}

}  // namespace

string RssTime(std::int64_t time) {
  return MailTime(time, "GMT");
}

string SearchTime(std::int64_t time) {
  return MailTime(time, "+0000");
}

string IsoTime(std::int64_t time) {
  const std::chrono::sys_seconds moment{std::chrono::seconds(time)};
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(moment));
  return Padded(static_cast<int>(date.year()), 4) + '-' + Padded(static_cast<unsigned>(date.month()), 2) +
         '-' + Padded(static_cast<unsigned>(date.day()), 2) + 'T' + TimeOfDay(moment);
}

string ClockTime(std::int64_t time) {
  return TimeOfDay(std::chrono::sys_seconds(std::chrono::seconds(time))).substr(0, 5);
}

string DayHeading(std::int64_t time) {
  const auto day =
      std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(std::chrono::seconds(time)));
  const std::chrono::year_month_day date(day);
  const auto number = static_cast<unsigned>(date.day());
  return string(FullDays.at(std::chrono::weekday(day).c_encoding())) + ' ' + std::to_string(number) +
         OrdinalSuffix(number) + ' ' + string(FullMonths.at(static_cast<unsigned>(date.month()) - 1)) + ' ' +
         std::to_string(static_cast<int>(date.year()));
}

}  // namespace practice
