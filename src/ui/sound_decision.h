// Which new spots call for the alert sound: those that are news, down to the level that the user chose.
#pragma once

#include <cstdint>
#include <vector>

#include "spots/spot.h"

namespace brelwin {

inline constexpr std::int16_t NoSound = 0;
inline constexpr std::int16_t SoundForEverySpot = 6;

// The spots that call for the sound, in the order of the candidates. Of `playSoundWhen`, 1 to 5 ask for a new
// summit, a new station on it, a new band, mode and frequency of that station: for what no older spot of the
// list has. Six takes every candidate, and zero, like any other number, none. A spot without a summit is
// always news. Test spots never call for it, and who has left the air is no news.
//
// `newSpots` is the whole batch, newest first, of which the candidates are a part. Those nearer its front
// came later and do not count as older; every other spot of the list with another ID does.
std::vector<SpotPointer> SpotsCallingForSound(std::int16_t playSoundWhen, const SpotCollection& candidates,
                                              const SpotCollection& newSpots, const SpotCollection& spotList);

}  // namespace brelwin
