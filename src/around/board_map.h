// The live part of the board as a map around the user's place.
#pragma once

#include <cstddef>
#include <optional>

#include "around/surroundings.h"
#include "board/board.h"
#include "places/map_contents.h"

namespace brelwin {

struct BoardMap {
  MapContents Contents;
  std::size_t WithoutPlace = 0;  // live activations whose summit is on no list
};

// Activations that are not over, in the order of the board, and those skimmers of the selected one that the
// country list knows. `selected` is the number of a row, 0 for none. Empty while the user's place is not set.
std::optional<BoardMap> MapOf(const Board& board, Surroundings& around, DateTime now, RowNumber selected);

}  // namespace brelwin
