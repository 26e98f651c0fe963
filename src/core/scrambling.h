// Hiding a secret from a passing glance at a settings file. This is no encryption, and files rely on its
// exact form.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace brelwin {

// The text with the code of the character at position i (from 1) raised, or lowered, by i * distance, or by
// 57 once that product is more than 100. A character's code, 0 to 255, is its Windows-1252 one; a scrambled
// text is written with U+0000 to U+00FF for them and may be read with either. Empty when a character has no
// such code or would leave the range; an empty text stays empty.
std::string ShiftEncode(std::string_view text, int distance);
std::string ShiftDecode(std::string_view text, int distance);

// Kind 1 gives a letter, kind 2 a digit, any other kind a digit or an upper-case letter.
char RandomCharacter(int kind, std::mt19937& generator);

}  // namespace brelwin
