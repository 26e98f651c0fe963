#include "intake/delivered_spots.h"

#include <chrono>

#include "radio/dates.h"
#include "spots/spot_collections.h"

namespace brelwin {
namespace {

// Longer than the 24 hours for which spots are asked, so that none is forgotten while a feed still holds it.
constexpr auto RememberedFor = std::chrono::hours(25);
constexpr std::size_t MostRemembered = 200'000;  // more than any feed holds; bounds what a hostile one costs

}  // namespace

bool DeliveredSpots::Note(std::string_view identity, Instant now) {
  ForgetOld(now);
  const bool isNew = !lastMet_.Remove(identity);
  lastMet_.Add(now, identity);
  return isNew;
}

void DeliveredSpots::ForgetOld(Instant now) {
  while (!lastMet_.Empty() &&
         (now - lastMet_.begin()->Item >= RememberedFor || lastMet_.Count() > MostRemembered))
    lastMet_.Remove(lastMet_.begin()->Key);
}

std::string DeliveryIdentity(const Spot& spot) {
  if (spot.UTCDateTime) return CompactText(*spot.UTCDateTime) + spot.Station + spot.Spotter;
  return TextIdentity(spot);
}

}  // namespace brelwin
