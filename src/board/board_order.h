// Which rows of the board are shown, and in which order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "board/board_columns.h"

namespace brelwin {

// Knows what surrounds a row.
using SurroundingsOf = std::function<RowSurroundings(const ActivationRow&)>;

// What the user wants to see.
struct BoardView {
  std::string Search;                   // words that a row must all have
  std::optional<BoardColumn> SortedBy;  // without one the board has its own order
  bool IsDescending = false;
  bool ShowsFinished = false;
  bool OnlyNeeded = false;
  bool HidesWorkedToday = false;
};

// The rows that the view wants, by number; the finished ones last, or only counted where they are folded.
struct BoardOrder {
  std::vector<RowNumber> Rows;
  std::size_t FinishedCount = 0;
};

// The board's own order: on the air by the newest event, then due, announced by time, quiet, and finished by
// the newest event.
BoardOrder OrderOf(const Board& board, const BoardView& view, const SurroundingsOf& surroundings,
                   DateTime now);

// Whether the activation is over: off the air, cancelled, or never heard. One who wants no automatic spots is
// finished when his window is over.
bool IsFinished(const RowMoment& moment);

// Whether the row has all the words, in any letter case, each anywhere in its station, summit with
// association and region, name, band ("20m"), frequency, mode and state.
bool HasWords(const RowMoment& moment, std::string_view words);

}  // namespace brelwin
