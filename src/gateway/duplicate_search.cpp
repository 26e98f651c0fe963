#include "gateway/duplicate_search.h"

#include <cmath>
#include <cstdlib>

#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::int64_t NearInHertz = 1000;

// By the 7-digit decimal: spots and feeds write that, and the doubles behind them differ by chance.
std::int64_t Hertz(float mhz) {
  return std::llround(ToDouble(SingleText(mhz)) * 1'000'000);
}

bool IsTooOld(const Spot& spot, DupeAge age) {
  return spot.TimeOfSpot && std::abs(MinutesBetween(*spot.TimeOfSpot, age.Now)) > age.MaximumMinutes;
}

bool IsSameStation(const Spot& one, const Spot& other) {
  return one.stationBaseCallsign == other.stationBaseCallsign;
}

// Who left the air says nothing of frequencies.
bool IsSilent(const Spot& held) {
  return held.Kind == SpotKind::Gone;
}

bool IsSameBand(const Spot& one, const Spot& other) {
  return one.BandInMhz == other.BandInMhz;
}

// What this one spot says of the new one; NoneFound: look at the next.
DupeFinding CompareWithCurrent(const Spot& held, const Spot& spot, DupeAge age) {
  if (held.IsRBNSpot) return DupeFinding::NoneFound;
  if (IsTooOld(held, age)) return DupeFinding::TooOld;
  if (!IsSameStation(held, spot) || IsSilent(held)) return DupeFinding::NoneFound;
  if (held.SpotKey == spot.SpotKey) return DupeFinding::SameKey;
  return IsSameBand(held, spot) ? DupeFinding::NoneFound : DupeFinding::OtherBand;
}

DupeFinding CompareWithFeed(const Spot& held, const Spot& spot, DupeAge age) {
  if (IsTooOld(held, age)) return DupeFinding::TooOld;
  if (!IsSameStation(held, spot) || IsSilent(held)) return DupeFinding::NoneFound;
  if (!IsSameBand(held, spot)) return DupeFinding::OtherBand;
  const bool isNear = DistanceInHertz(held.FrequencyInMhz, spot.FrequencyInMhz) < NearInHertz;
  return isNear ? DupeFinding::NearFrequency : DupeFinding::NoneFound;
}

template <class Compare>
DupeSearch Walk(const SpotCollection& spots, const Spot& spot, DupeAge age, Compare compare) {
  for (const auto& entry : spots) {
    const auto finding = compare(*entry.Item, spot, age);
    if (finding != DupeFinding::NoneFound) return {finding, entry.Item};
  }
  return {};
}

}  // namespace

std::int64_t DistanceInHertz(float oneInMhz, float otherInMhz) {
  return std::abs(Hertz(oneInMhz) - Hertz(otherInMhz));
}

DupeSearch SearchCurrentSpots(const SpotCollection* current, const Spot& spot, DupeAge age) {
  if (current == nullptr) return {DupeFinding::NoCollection, nullptr};
  if (current->Empty()) return {DupeFinding::NoSpots, nullptr};
  return Walk(*current, spot, age, CompareWithCurrent);
}

DupeSearch SearchFeedSpots(const SpotCollection& feed, const Spot& spot, DupeAge age) {
  if (feed.Empty()) return {DupeFinding::NoSpots, nullptr};
  if (const auto* held = feed.Find(spot.SpotKey)) return {DupeFinding::SameKey, *held};
  return Walk(feed, spot, age, CompareWithFeed);
}

}  // namespace brelwin
