// Which new spots call for the alert sound, down to the level that the user chose, and which file it plays:
// one named after a station or a summit, where the user has put such files into the program's folder, or
// else the common one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/keyed_collection.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// What calls for the sound, newest first, keyed by itself.
struct SoundCalls {
  KeyedCollection<std::string> Callsigns;
  KeyedCollection<std::string> SummitReferences;
};

// The first that exists of: "Q0ZZ.wav" when Q0ZZ is among the callsigns, the files of the callsigns
// ("G4ABC.wav"), and those of the references and their beginnings (of W6/CT-001 "W6-CT-001.wav",
// "W6-CT-00.wav" and so on down to "W.wav"); without any of them `alertSound`. The newest 200 calls are
// looked at, and of a reference the first 32 characters. Callsigns come from outside: one that would lead out
// of the folder names no file.
std::string ChooseSoundFile(const Host& host, const SoundCalls& calls, std::string_view alertSound);

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
