// What is wrong with single records of a file that others wrote: the rest of the file is used.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// How many lines begin within the text, for telling the line of a record.
inline std::size_t LinesBegunIn(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

// All are counted; the first ones are named, so that a file of nothing but faults costs no memory.
struct RecordFaults {
  static constexpr std::size_t MostNamed = 20;

  std::size_t Count = 0;
  std::vector<std::string> Named;  // "line 12: no callsign"

  // Adds a fault of the record that begins in this line, counted from 1.
  void Add(std::size_t line, std::string_view what) {
    ++Count;
    if (Named.size() < MostNamed) Named.push_back("line " + std::to_string(line) + ": " + std::string(what));
  }
};

}  // namespace brelwin
