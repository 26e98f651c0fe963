#include "radio/mode.h"

#include "base/text.h"

namespace brelwin {

std::int16_t ModeCode(std::string_view modeText) {
  const auto mode = UpperCase(Trim(modeText));
  if (mode == "CW") return 1;
  if (mode == "SSB") return 2;
  if (mode == "FM") return 3;
  if (mode == "PSK" || mode == "BPSK") return 4;
  return 0;
}

std::string ModeWord(std::string_view modeText) {
  auto word = LowerCase(modeText);
  if (word == "psk" || word == "bpsk") return "psk";
  for (const std::string_view known : {"am", "cw", "data", "fm", "rtty", "ssb"}) {
    if (word == known) return word;
  }
  return "other";
}

}  // namespace brelwin
