// Modes of emission as codes and as words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

// 1 for CW, 2 for SSB, 3 for FM, 4 for PSK and BPSK, in any letter case and with outer blanks; else 0.
std::int16_t ModeCode(std::string_view modeText);

// The lower-case word of the mode for names of files and sounds: "am", "cw", "data", "fm", "rtty", "ssb",
// "psk" (for BPSK as well), and "other" for everything else.
std::string ModeWord(std::string_view modeText);

}  // namespace brelwin
