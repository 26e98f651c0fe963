// What happens on the practice network on one day: the activations of all operators, in the order of time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "scripted_spot.h"

namespace practice {

inline constexpr std::int64_t SecondsOfDay = 86400;

// The spots of a day. Day 0 begins when the network is started; day -1 is the day before. The same seed and
// day give the same script. Activations end at the end of their day. With a crowd, so many operators come to
// the usual ones, and everybody has about one turn a day.
std::vector<ScriptedSpot> ScriptDay(std::uint64_t seed, std::int64_t day, std::size_t crowd = 0);

}  // namespace practice
