// Logs in the amateur data interchange format: "<CALL:5>G4ABC <QSO_DATE:8>20261124 <EOR>".
#pragma once

#include <string_view>

#include "base/record_faults.h"
#include "needs/contact.h"

namespace brelwin {

// Reads the records that are whole, from the position on, and moves it behind the last one. A header before
// the first record may be there or not. The length of a value may count bytes or characters: the one is taken
// behind which a field, a blank or the end follows. A record with a length that is no number, or that reaches
// into the next record, without callsign or date is left out and counted.
void ReadAdif(std::string_view bytes, LogPosition& position, const TakeContact& take, RecordFaults& faults);

}  // namespace brelwin
