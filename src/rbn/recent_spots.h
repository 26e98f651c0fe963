// Which stations skimmers have heard lately, and where: what makes a spot a repeated one.
#pragma once

#include <string_view>

#include "base/keyed_collection.h"
#include "platform/clock.h"

namespace brelwin {

// Duplicate keys with the time when each was first heard. They are remembered in the order of time.
class RecentRBNSpots {
 public:
  // Forgets what was heard `minutes` ago or longer; nothing when that is 0 or less. The cost is that of what
  // is forgotten.
  void Purge(double minutes, Instant now);

  bool Contains(std::string_view duplicateKey) const { return heardAt_.Contains(duplicateKey); }

  // A key that is remembered keeps its time.
  void Remember(std::string_view duplicateKey, Instant now) { heardAt_.Add(now, duplicateKey); }

  void Forget(std::string_view duplicateKey) { heardAt_.Remove(duplicateKey); }

  std::size_t Count() const { return heardAt_.Count(); }

 private:
  KeyedCollection<Instant> heardAt_;
};

}  // namespace brelwin
