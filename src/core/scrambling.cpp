#include "core/scrambling.h"

#include "base/encoding.h"

namespace brelwin {
namespace {

constexpr int LargestCode = 255;
constexpr std::int64_t LargestShift = 100;
constexpr std::int64_t ShiftBeyondLargest = 57;

char32_t ScrambledCharacter(int code) {
  return static_cast<char32_t>(code);
}

char32_t PlainCharacter(int code) {
  return CodePointOfWindows1252(static_cast<unsigned char>(code));
}

std::int64_t ShiftAt(std::int64_t position, int distance) {
  const auto shift = position * distance;
  return shift > LargestShift ? ShiftBeyondLargest : shift;
}

// `direction` is 1 or -1.
std::string Shifted(std::string_view text, int distance, int direction, char32_t (*characterOf)(int)) {
  std::string result;
  for (std::int64_t position = 1; !text.empty(); ++position) {
    const auto code = CodeInWindows1252(TakeCodePoint(text));
    if (!code) return {};
    const auto shifted = *code + direction * ShiftAt(position, distance);
    if (shifted < 0 || shifted > LargestCode) return {};
    AppendCodePoint(result, characterOf(static_cast<int>(shifted)));
  }
  return result;
}

char RandomOf(std::string_view characters, std::mt19937& generator) {
  return characters[std::uniform_int_distribution<std::size_t>(0, characters.size() - 1)(generator)];
}

}  // namespace

std::string ShiftEncode(std::string_view text, int distance) {
  return Shifted(text, distance, 1, ScrambledCharacter);
}

std::string ShiftDecode(std::string_view text, int distance) {
  return Shifted(text, distance, -1, PlainCharacter);
}

char RandomCharacter(int kind, std::mt19937& generator) {
  constexpr std::string_view DigitsAndLetters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  constexpr std::size_t Digits = 10;
  if (kind == 1) return RandomOf(DigitsAndLetters.substr(Digits), generator);
  if (kind == 2) return RandomOf(DigitsAndLetters.substr(0, Digits), generator);
  return RandomOf(DigitsAndLetters, generator);
}

}  // namespace brelwin
