// What services say of a summit in one text: "Palomas Peak, 2647m, 8 points".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

struct SummitDetails {
  std::string Name;
  std::int32_t ElevationInMeters = 0;  // 0: not said
  std::int16_t Points = 0;
};

// Takes the points ("8 points", "8 pts", "8 Point(s)") and the height off the end; what is left is the name,
// which may be a number or hold commas. Numbers that do not fit count as not said.
SummitDetails ReadSummitDetails(std::string_view text);

// The reference of a summit: "G/LD-001" of "G" and "LD-001", and of a code that is whole by itself.
std::string SummitReference(std::string_view association, std::string_view code);

// The details as one text that ends in the figure of the points: "Palomas Peak, 2647m, 8". What is not said
// is left out, and without anything the text is empty.
std::string SummitDescriptionText(const SummitDetails& details);

}  // namespace brelwin
