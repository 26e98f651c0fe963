// Where a reader stands in a log that grows.
#pragma once

#include <cstddef>

namespace brelwin {

// Everything before the position has been read.
struct LogPosition {
  std::size_t Byte = 0;
  std::size_t Line = 1;         // that the position is in
  bool HeaderMayFollow = true;  // no record has been met
};

}  // namespace brelwin
