// Times of day as the services write them.
#pragma once

#include <cstdint>
#include <string>

namespace practice {

std::string RssTime(std::int64_t time);     // "Tue, 24 Nov 2026 10:00:00 GMT"
std::string SearchTime(std::int64_t time);  // "Tue, 24 Nov 2026 10:00:00 +0000"
std::string IsoTime(std::int64_t time);     // "2026-11-24T10:00:00"
std::string ClockTime(std::int64_t time);   // "10:00"
std::string DayHeading(std::int64_t time);  // "Tuesday 24th November 2026"

}  // namespace practice
