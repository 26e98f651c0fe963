// Playing wave files.
#pragma once

#include <string>
#include <string_view>

#include "platform/host.h"

namespace brelwin {

// What the user is told of a sound file that is not there.
std::string MissingSoundText(std::string_view fullName);

// Plays one wave file; a name without a folder stands in the program's folder. With `wait` it returns when
// the sound has ended, else at once. False for a blank name. A missing file gives True and the error text,
// which is cleared on entry; that the system cannot play is not reported.
bool PlayWaveFile(Host& host, std::string_view fileName, bool wait, std::string& errorText);

}  // namespace brelwin
