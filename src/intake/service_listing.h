// What the JSON service lists, against what it listed before: which spots are new, which were edited and
// which have been deleted.
#pragma once

#include <string>
#include <vector>

#include "spots/spot_maker.h"

namespace brelwin {

// A spot that says something else than before, under the same ID.
struct SpotEdit {
  SpotPointer Before;
  SpotPointer After;

  // Whether the frequency, the mode or the summit is another one.
  bool IsNews() const;
};

struct ListingChanges {
  std::vector<MadeSpots> Added;  // newest first
  std::vector<SpotEdit> Edited;
  std::vector<SpotPointer> Deleted;
};

// What of the service's answer the listing is told.
struct ListedRows {
  std::vector<MadeSpots> Spots;  // newest first, with the service's IDs
  bool IsWhole = false;          // all that the service has, so that what is missing has been deleted
  std::size_t Unread = 0;        // rows that could not be read
};

class ServiceListing {
 public:
  // Notes what is listed and tells what has changed. A spot that is as it was stays the same object. Those
  // that are nearly a day old leave the list by themselves and do not count as deleted. What is missing when
  // there are more unread rows than before may be one of them: it counts as deleted when it is still missing
  // in the next whole list.
  ListingChanges Take(ListedRows&& rows, DateTime utcNow);

  // Every spot that is listed, newest first.
  std::vector<MadeSpots> All() const;

  void Clear() { *this = {}; }

 private:
  using Held = KeyedCollection<MadeSpots>;  // by the service's ID

  void TakeMissing(const Held& before, const ListedRows& rows, DateTime utcNow, ListingChanges& changes);

  Held held_;
  Held missing_;            // held, but not in the last whole list
  std::size_t unread_ = 0;  // of that list
};

}  // namespace brelwin
