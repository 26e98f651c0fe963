#include "rbn/recent_spots.h"

namespace brelwin {

void RecentRBNSpots::Purge(double minutes, Instant now) {
  if (!(minutes > 0)) return;
  while (!heardAt_.Empty()) {
    const auto& oldest = *heardAt_.begin();
    if (static_cast<double>(MinutesBetween(oldest.Item, now)) < minutes) return;
    heardAt_.Remove(oldest.Key);
  }
}

}  // namespace brelwin
