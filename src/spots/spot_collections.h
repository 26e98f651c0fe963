// What is done with keyed collections of spots, callsigns and other records. None of these fails loudly: the
// result says whether something was done.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "spots/spot.h"

namespace brelwin {

// True when the text was added under the key; false when the key is held already.
bool AddToCollection(std::string_view item, std::string_view key, KeyedCollection<std::string>& collection);

// True when the object was added under the key; false for a null pointer and for a key that is held already.
template <class T>
bool AddObjectToCollection(std::shared_ptr<T> object, std::string_view key,
                           KeyedCollection<std::shared_ptr<T>>& collection) {
  return object != nullptr && collection.Add(std::move(object), key);
}

// True when an item has the key, in any letter case.
template <class T>
bool ExistsInCollection(const KeyedCollection<T>& collection, std::string_view key) {
  return collection.Contains(key);
}
template <class T>
bool ObjectExistsInCollection(const KeyedCollection<std::shared_ptr<T>>& collection, std::string_view key) {
  return collection.Contains(key);
}

// True when there was an item with the key; it is removed.
template <class T>
bool RemoveFromCollection(std::string_view key, KeyedCollection<T>& collection) {
  return collection.Remove(key);
}

// Keeps the first `maximum` items, which in lists of spots are the newest; a negative number changes nothing.
template <class T>
void TrimCollection(std::int32_t maximum, KeyedCollection<T>& collection) {
  if (maximum >= 0) collection.Trim(static_cast<std::size_t>(maximum));
}

// Adds the spot under its ID; false for a null pointer and for an ID that is held already.
bool AddSpotByID(SpotPointer spot, SpotCollection& collection);

// Adds to the end of the target, in order, the spots whose ID it does not hold. Returns how many.
std::int32_t CopyNewSpots(const SpotCollection& source, SpotCollection& target);

// The first `maximum` spots, under their IDs.
SpotCollection FirstSpots(const SpotCollection& spots, std::size_t maximum);

// The spots without those that are only shown.
SpotCollection WithoutTests(const SpotCollection& spots);

// Puts the new spots, in their order, in front of the target's. Of two spots with the same ID the older gives
// way, so the newest batch is always whole and in front. A target that is to hold `maximum` spots keeps the
// first of them; 0 or less keeps all. Costs nothing per spot of the target.
void MergeInFront(const SpotCollection& newSpots, SpotCollection& target, std::int32_t maximum = 0);

// What makes a spot without a time the same in the next read and in the next run: everything that it says.
std::string TextIdentity(const Spot& spot);

// The duplicate test: equal base callsigns and equal frequencies, rounded to 3 decimals.
bool IsDuplicateSpot(const Spot& held, const Spot& spot);

// Number of held spots that are duplicates of the given one.
std::int32_t CountSpotsMatching(const SpotCollection& collection, const Spot& spot);

}  // namespace brelwin
