// Remembers which spots have been delivered, so that a feed that is read again and again delivers each once.
#pragma once

#include <string>
#include <string_view>

#include "base/keyed_collection.h"
#include "platform/clock.h"
#include "spots/spot.h"

namespace brelwin {

class DeliveredSpots {
 public:
  // True when this identity was not noted in the 24 hours before `now`, and a while longer. It is noted
  // either way, and one that is met again is remembered as long anew.
  bool Note(std::string_view identity, Instant now);

  // What is delivered under the identity from now on is new.
  void Forget(std::string_view identity) { lastMet_.Remove(identity); }

  // Whether the identity is remembered.
  bool Knows(std::string_view identity) const { return lastMet_.Contains(identity); }

 private:
  void ForgetOld(Instant now);

  KeyedCollection<Instant> lastMet_;  // by identity; the one that was met longest ago comes first
};

// What makes a spot the same in the next read and in another feed: its time, station and spotter, or, where
// the feed gives no time, everything else that it says.
std::string DeliveryIdentity(const Spot& spot);

}  // namespace brelwin
