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

// "2 broken records are left out: line 7: no callsign; line 9: no date". Those before the first `told` are
// passed over; beyond the ones with a name "..." stands. Empty without any.
inline std::string FaultWords(const RecordFaults& faults, std::size_t told = 0) {
  if (faults.Count <= told) return {};
  const auto count = faults.Count - told;
  auto words =
      std::to_string(count) + (count == 1 ? " broken record is left out" : " broken records are left out");
  const char* before = ": ";
  for (auto i = told; i < faults.Named.size(); ++i) {
    words += before + faults.Named[i];
    before = "; ";
  }
  if (faults.Count > faults.Named.size()) words += before + std::string("...");
  return words;
}

}  // namespace brelwin
