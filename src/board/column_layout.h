// How the user has laid out the columns of the board, and that as one text to keep.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/board_columns.h"

namespace brelwin {

struct ColumnPlace {
  BoardColumn Column = BoardColumn::State;
  int Width = 0;  // pixels; 0: as wide as it is at first
  bool IsHidden = false;

  bool operator==(const ColumnPlace&) const = default;
};

struct ColumnLayout {
  std::vector<ColumnPlace> Places;      // every column once, from the left
  std::optional<BoardColumn> SortedBy;  // without one the board has its own order
  bool IsDescending = false;

  bool operator==(const ColumnLayout&) const = default;
};

// Such as "State 150, Station, -Name 200, sorted down by Window": a minus for a hidden column. What is not
// understood is passed over; columns that are missing come last, as they are at first. At least one is shown.
ColumnLayout ReadColumnLayout(std::string_view text);
std::string ColumnLayoutText(const ColumnLayout& layout);

}  // namespace brelwin
