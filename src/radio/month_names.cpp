#include "radio/month_names.h"

#include <array>
#include <cstddef>

#include "base/text.h"

namespace brelwin {
namespace {

constexpr std::size_t ShortLength = 3;

constexpr std::array<std::string_view, 12> Months = {"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};

constexpr std::array<std::string_view, 7> Weekdays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                      "Friday", "Saturday", "Sunday"};

bool Names(std::string_view name, std::string_view full) {
  return EqualsIgnoringCase(name, name.size() == ShortLength ? full.substr(0, ShortLength) : full);
}

}  // namespace

std::string_view ShortMonthName(int month) {
  return Months[static_cast<std::size_t>(month - 1)].substr(0, ShortLength);
}

std::optional<int> MonthOfName(std::string_view name) {
  for (std::size_t i = 0; i < Months.size(); ++i) {
    if (Names(name, Months[i])) return static_cast<int>(i) + 1;
  }
  return {};
}

bool IsWeekdayName(std::string_view name) {
  for (const auto weekday : Weekdays) {
    if (Names(name, weekday)) return true;
  }
  return false;
}

}  // namespace brelwin
