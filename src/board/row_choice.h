// Which of a station's rows an event belongs to.
#pragma once

#include <string_view>
#include <vector>

#include "board/activation_row.h"

namespace brelwin {

using RowsOfStation = std::vector<ActivationRow*>;

// After such a silence an activation is another one.
inline constexpr std::int64_t SecondsOfSilence = std::int64_t{4} * 3600;

// The row of the summit that is on the air, announced or was so within 4 hours of `time`; else one of the
// last 4 hours whose summit is not known. Null when a new row begins.
ActivationRow* RowOnSummit(const RowsOfStation& rows, std::string_view summit, DateTime time);

// The row of a station of which only the callsign is known: on the air on a summit, else announced for this
// time, else on the air within 4 hours, else announced for a time within 2 hours. Null when a new row begins.
ActivationRow* RowOnTheAir(const RowsOfStation& rows, DateTime time);

// The row of the summit to which an announcement belongs: one whose span of time is less than 4 hours away;
// else one whose announcements were all taken off before their time. Null when a new row begins.
ActivationRow* RowOfAnnouncement(const RowsOfStation& rows, std::string_view summit,
                                 const Announcement& announcement);

// Where a row begins after a silence: the row before it, whose window still holds `time` and goes to the new
// one. Without a summit the row may be of any. Null without one.
ActivationRow* RowToTakeOver(const RowsOfStation& rows, std::string_view summit, DateTime time);

// Whether a skimmer's line may begin a row of the station: one of its rows is not more than 12 hours away.
// Who is heard on other days is at home.
bool IsExpected(const RowsOfStation& rows, DateTime time);

// The rows that the station left by being at `time` on the summit of `current`.
RowsOfStation RowsLeft(const RowsOfStation& rows, const ActivationRow& current, DateTime time);

}  // namespace brelwin
