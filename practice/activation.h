// One activation: an operator climbs a summit, goes on the air, changes band and mode, is spotted, and goes
// home.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "random.h"
#include "scripted_spot.h"

namespace practice {

// The spots of one activation of the operator that begins at the given second of the script, in the order
// of time. It lasts two hours at most.
std::vector<ScriptedSpot> ScriptActivation(Random& random, std::string_view callsign, std::int64_t beginning);

// Gives the spot a frequency and a mode of another plan.
void MoveToAnotherBand(Random& random, ScriptedSpot& spot);

// A frequency in units of 100 Hz as MHz with three decimals, or four when it needs them: "7.032", "14.0625".
std::string FrequencyText(std::int64_t hundredHertz);

}  // namespace practice
