// Made-up spots for the benchmarks: many, plausible, and the same on every run.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "spots/spot.h"

namespace brelwin::benchmarks {

// What the spots are about: a value of each kind is drawn from these.
extern const std::vector<std::string_view> Prefixes;
extern const std::vector<std::string_view> Regions;
extern const std::vector<std::string_view> Modes;
extern const std::vector<float> Frequencies;  // MHz

// The spot number `number`, with an ID of its own.
SpotPointer MakeSpot(std::size_t number);

// `count` spots, the one with the number `first` in front.
SpotCollection MakeSpots(std::size_t first, std::size_t count);

// A feed of `count` items, newest first, the newest at the given moment.
std::string MakeFeed(std::size_t count, DateTime newest);

// Whether both hold spots that are the same in every field, in the same order and under the same keys.
bool AreSameSpots(const SpotCollection& left, const SpotCollection& right);

}  // namespace brelwin::benchmarks
