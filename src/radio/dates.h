// Dates and times as text: one reader for every form the program meets, the forms it writes itself, and the
// way between local time and UTC. Month names are English whatever the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"
#include "platform/clock.h"

namespace brelwin {

// The three-letter name of a month, 1 to 12: "Nov".
std::string_view ShortMonthName(int month);

// The month, 1 to 12, of a name in any letter case; empty when it is none.
std::optional<int> MonthOfName(std::string_view name);

bool IsWeekdayName(std::string_view name);

// Reads "2026-11-24 10:00[:00]" (also with "T" between), "24 Nov 2026 10:00:00", "24 November 2026",
// "Nov 24 2026 10:00:00", "Tue, 24 Nov 2026 10:00:00", "10:00" and "10:00:00". A date alone is its midnight;
// a time alone is that time on 30 December 1899. A time may be followed by a zone ("+0100", "-05:30", "UT",
// "UTC", "GMT", "Z"): it is then converted to UTC. Empty for anything else; no plain number is a date.
std::optional<DateTime> ReadDateTime(std::string_view text);

// Midnight of day zero, 30 December 1899, on which a time without a date falls.
DateTime DayZero();

// Whether what was read is a time without a date: it falls on day zero.
bool IsTimeAlone(DateTime time);

// Whether the text is a date or a time and not a plain number.
bool IsDateNotNumber(std::string_view text);

std::string DateTimeText(DateTime time);        // "2026-11-24 10:00:00"
std::string ClockText(DateTime time);           // "10:00"
std::string CompactText(DateTime time);         // "20261124100000"
std::string CompactMinutesText(DateTime time);  // "202611241000"
std::string MonthFirstText(DateTime time);      // "Nov 24 2026 10:00:00"

// Minutes to add to local time to get UTC, by the system's zone and the daylight time in force at present.
std::int32_t TimeZoneOffsetInMinutes(const Clock& clock);

// The same as hours, truncated toward zero, and remaining minutes of the same sign. True when it is known.
bool GetTimeZoneOffset(const Clock& clock, std::int32_t& hours, std::int32_t& minutes);

DateTime UTCNow(const Clock& clock);

// The current UTC date and time as "mmm dd yyyy hh:mm:ss".
std::string GetUTCNowText(const Clock& clock);

// The local time of a UTC time, by the offset at present; empty stays empty.
std::optional<DateTime> UTCToLocal(const Clock& clock, std::optional<DateTime> utc);

}  // namespace brelwin
