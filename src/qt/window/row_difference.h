// What changed between two lists of spots, as few runs of rows: what a view needs to keep the reader's place.
#pragma once

#include <cstddef>
#include <vector>

#include "controls/spot_list_box.h"

namespace brelwin {

struct RowRun {
  std::size_t First = 0;
  std::size_t Count = 0;
};

struct RowDifference {
  std::vector<RowRun> Removed;  // of the old rows, top down
  std::vector<RowRun> Added;    // of the new rows, top down
};

// A spot that is in both lists, itself or another of the same ID, stays as long as such spots keep their
// order. Takes time in proportion to the number of rows, and hardly any when spots only come on top and leave
// at the end.
RowDifference FindRowDifference(const SpotRows& before, const SpotRows& after);

}  // namespace brelwin
