// Notices that the program stood still: the machine slept, or the process was stopped.
#pragma once

#include <optional>

#include "platform/clock.h"

namespace brelwin {

// Looks at the clock again and again; where it has not looked for more than two minutes, the program stood
// still in between. Whoever keeps it must have it look every few seconds, also in the middle of every wait.
class StallWatch {
 public:
  void Look(Instant now);

  // Looks, and says whether the program has stood still at some time after `moment`.
  bool HasStalledSince(Instant moment, Instant now);

  // Whole minutes of the latest stall; 0 before the first.
  std::int64_t LatestInMinutes() const { return latestInMinutes_; }

 private:
  std::optional<Instant> lastLook_;
  std::optional<Instant> latestEnd_;
  std::int64_t latestInMinutes_ = 0;
};

}  // namespace brelwin
