// Which sound file an alert plays: one named after a station or a summit, where the user has put such files
// into the program's folder, or else the common one.
#pragma once

#include <string>
#include <string_view>

#include "base/keyed_collection.h"
#include "platform/host.h"

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

}  // namespace brelwin
