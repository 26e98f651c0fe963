// Makes the spot record of a skimmer line that is kept.
#pragma once

#include <cstdint>
#include <string>

#include "base/date_time.h"
#include "rbn/spot_line.h"
#include "rbn/spot_rules.h"
#include "spots/spot.h"

namespace brelwin {

// Where and when the line was received.
struct LineReceipt {
  std::int32_t RunningNumber = 0;  // of the handled lines of the block, from 1
  std::size_t PieceNumber = 0;     // of the text between two line starts, from 1
  DateTime LocalNow;
};

SpotPointer BuildRBNSpot(SpotLine& line, LineFacts& facts, const LineReceipt& receipt);

}  // namespace brelwin
