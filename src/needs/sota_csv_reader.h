// Logs as the awards programme's database takes them, a line for each contact:
// "V2,G4XYZ,,24/11/26,1012,14MHz,CW,G4ABC/P,G/LD-003,notes".
#pragma once

#include <string_view>

#include "base/record_faults.h"
#include "needs/contact.h"

namespace brelwin {

// Reads the lines from the position on and moves it behind the last one. With `isWhole` the last line needs
// no line end; else it may be half-written and waits for one. A line that does not begin with "V2", or is
// without callsign or date, is left out and counted; blank lines are passed over.
void ReadSotaCsv(std::string_view bytes, LogPosition& position, bool isWhole, const TakeContact& take,
                 RecordFaults& faults);

}  // namespace brelwin
