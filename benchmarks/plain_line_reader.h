// The least code that makes the same spots of made-up skimmer lines: it knows their columns and their one
// band, and nothing is ever missing or odd.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "base/keyed_collection.h"
#include "spots/spot.h"

namespace brelwin::benchmarks {

// What makes a difference to a line besides its text.
struct PlainSurroundings {
  std::unordered_set<std::string> Announced;  // base callsigns
  KeyedCollection<bool> Heard;                // duplicate keys; grows
  bool DropsRepeated = false;
  DateTime LocalNow;
};

void ReadMadeLines(std::string_view block, PlainSurroundings& surroundings, SpotCollection& spots);

}  // namespace brelwin::benchmarks
