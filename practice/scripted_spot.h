// One spot of the script: who is on the air, where and how, and who says so.
#pragma once

#include <cstdint>
#include <string>

namespace practice {

// How a service writes text that holds markup characters. Real feeds mix all three.
enum class Markup : std::uint8_t { NamedEntities, NumericEntities, CData };

struct ScriptedSpot {
  std::int64_t Second = 0;     // from the beginning of the script; below 0 is before the network was started
  std::string Station = {};    // "G4ABC/P", or two callsigns joined by AND
  std::string Summit = {};     // reference, "G/LD-001"
  std::string Frequency = {};  // MHz, "7.032"
  std::string Mode = {};
  std::string Comment = {};  // plain text in UTF-8, possibly of several lines
  std::string Spotter = {};
  Markup Writing = Markup::NamedEntities;
  bool IsSpotted = true;  // false: on the air, and heard by skimmers, but nobody has told Sotawatch

  bool operator==(const ScriptedSpot&) const = default;
};

}  // namespace practice
