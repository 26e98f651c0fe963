// One line of a skimmer, taken apart into its fields:
//   KM3T-2-#:  14100.0  CS3B           CW    24 dB  22 WPM  CQ      2259Z
// Fields stand two or more blanks apart, so that a number and its unit are one field.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

// What every line begins with. It is no part of the line's fields.
inline constexpr std::string_view SpotLineStart = "DX de";

enum class SpotField : std::uint8_t {
  Skimmer,
  Frequency,  // kHz
  Station,
  Mode,
  SignalToNoise,  // "24 dB"
  Speed,          // "22 WPM"
  Type,           // "CQ"
  Time,           // "2259Z"
};

class SpotLine {
 public:
  // Takes apart the text between two line starts, outer blanks trimmed. The text must live as long as the
  // fields are used; the object may be used again.
  void Read(std::string_view text);

  // The field, without line ends and BEL characters, trimmed; empty when the line ends before it. It lives
  // until the next Read.
  std::string_view Field(SpotField which);

  // All fields, also those behind the last one with a meaning, joined by two blanks.
  std::string Text() const;

 private:
  static constexpr std::size_t FieldCount = 8;

  std::string_view text_;
  std::array<std::string_view, FieldCount> raw_;
  std::array<std::string, FieldCount> mended_;  // of fields that had to be copied to be clean
};

// The skimmer's callsign of its field: "KM3T-2" of "KM3T-2-#:".
std::string SkimmerCallsign(std::string_view skimmerField);

// "22:59" of "2259Z"; what is no time of four characters stays as it stands before the "Z".
std::string UTCTimeText(std::string_view timeField);

// The number of a field such as "24 dB" without its unit; 0 when it holds none.
float NumberBefore(std::string_view unit, std::string_view field);

// Whether the line is empty, or a line start with nothing behind it.
bool SaysNothing(std::string_view line);

// The text from its first line start on; the whole text when there is none.
std::string_view FromFirstSpotLine(std::string_view text);

}  // namespace brelwin
