// What changed between two lists of lines, as few runs: what a view needs to keep the reader's place.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace brelwin {

struct LineRun {
  std::size_t First = 0;
  std::size_t Count = 0;

  bool operator==(const LineRun&) const = default;
};

struct LineDifference {
  std::vector<LineRun> Removed;  // of the old lines, top down
  std::vector<LineRun> Added;    // of the new lines, top down
};

// Equal lines are one and the same line as long as they keep their order. Takes time in proportion to the
// number of lines.
LineDifference FindLineDifference(const std::vector<std::string_view>& oldLines,
                                  const std::vector<std::string_view>& newLines);

}  // namespace brelwin
