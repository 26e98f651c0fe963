// The days of tables that others write: summit lists and logs.
#pragma once

#include <optional>
#include <string_view>

#include "base/date_time.h"

namespace brelwin {

// Midnight of the day: "24/11/2026", "24/11/26" (years 70 to 99 are those of the last century), "2026-11-24"
// or "20261124". What follows a blank is ignored. Empty for anything else, and for a day that does not exist.
std::optional<DateTime> ReadDay(std::string_view text);

// The text as a whole number of digits alone, at most nine of them; empty for anything else.
std::optional<int> ReadDigits(std::string_view text);

}  // namespace brelwin
