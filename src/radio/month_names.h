// English names of months and weekdays, read by their first three letters or in full.
#pragma once

#include <optional>
#include <string_view>

namespace brelwin {

// The three-letter name of a month, 1 to 12: "Nov".
std::string_view ShortMonthName(int month);

// The month, 1 to 12, of a name in any letter case; empty when it is none.
std::optional<int> MonthOfName(std::string_view name);

bool IsWeekdayName(std::string_view name);

}  // namespace brelwin
