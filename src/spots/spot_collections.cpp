#include "spots/spot_collections.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "radio/numbers.h"

namespace brelwin {

bool AddToCollection(std::string_view item, std::string_view key, KeyedCollection<std::string>& collection) {
  return collection.Add(std::string(item), key);
}

bool AddSpotByID(SpotPointer spot, SpotCollection& collection) {
  if (spot == nullptr) return false;
  const std::string_view id = spot->ID;
  return collection.Add(std::move(spot), id);
}

std::int32_t CopyNewSpots(const SpotCollection& source, SpotCollection& target) {
  if (&source == &target) return 0;
  std::int32_t added = 0;
  for (const auto& entry : source) added += AddSpotByID(entry.Item, target) ? 1 : 0;
  return added;
}

SpotCollection FirstSpots(const SpotCollection& spots, std::size_t maximum) {
  SpotCollection first;
  for (const auto& entry : spots) {
    if (first.Count() == maximum) break;
    AddSpotByID(entry.Item, first);
  }
  return first;
}

SpotCollection WithoutTests(const SpotCollection& spots) {
  SpotCollection others;
  for (const auto& [key, spot] : spots) {
    if (spot->Kind != SpotKind::Test) others.Add(spot, key);
  }
  return others;
}

void MergeInFront(const SpotCollection& newSpots, SpotCollection& target, std::int32_t maximum) {
  if (&newSpots == &target) return;
  const auto most = maximum > 0 ? static_cast<std::size_t>(maximum) : newSpots.Count();
  const auto stay = static_cast<std::ptrdiff_t>(std::min(most, newSpots.Count()));
  for (auto entry = std::next(newSpots.begin(), stay); entry != newSpots.begin();) {
    --entry;
    target.Remove(entry->Item->ID);
    target.AddInFront(entry->Item, entry->Item->ID);
  }
  if (maximum > 0) target.Trim(most);
}

std::string TextIdentity(const Spot& spot) {
  std::string identity = "untimed";
  for (const auto* field : {&spot.Station, &spot.SummitDesignator, &spot.FrequencyString, &spot.ModeString,
                            &spot.Comment, &spot.Spotter})
    identity.append("\n").append(*field);
  return identity;
}

bool IsDuplicateSpot(const Spot& held, const Spot& spot) {
  return held.stationBaseCallsign == spot.stationBaseCallsign &&
         RoundedToThreeDecimals(held.FrequencyInMhz) == RoundedToThreeDecimals(spot.FrequencyInMhz);
}

std::int32_t CountSpotsMatching(const SpotCollection& collection, const Spot& spot) {
  return static_cast<std::int32_t>(
      std::count_if(collection.begin(), collection.end(),
                    [&spot](const auto& entry) { return IsDuplicateSpot(*entry.Item, spot); }));
}

}  // namespace brelwin
