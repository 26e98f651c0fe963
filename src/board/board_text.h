// The board as a table of text: for a terminal, and a line for each change where there is none.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "board/board_order.h"

namespace brelwin {

struct TableSize {
  std::size_t Width = 100;  // characters; a narrower table is made no narrower than 60
  std::size_t Height = 0;   // lines at most, with the heading; 0: as many as there are rows
};

// The heading and a line for each row in the board's own order, none longer than the width. The last line
// tells of the rows that have no place and of those that are finished.
std::vector<std::string> BoardLines(const Board& board, const SurroundingsOf& surroundings, DateTime now,
                                    TableSize size);

// What of a row is worth a line of its own when it changes: the time alone may change it as well.
struct RowFace {
  ActivationState State = ActivationState::Announced;
  StateReason Reason = StateReason::WindowToCome;
  std::size_t Events = 0;  // of its story
  std::string LastEvent;

  bool operator==(const RowFace&) const = default;
};
RowFace FaceOf(const RowMoment& moment);

// The row in one line: state, station, summit, where it is to be heard, and what has happened to it since
// `before`: the newest event of its story, or why it has come into its state.
std::string NewsLine(const RowMoment& moment, const RowFace& before);

// The time around `now` as characters of 20 minutes: where an announced window is open, and "now" in the
// middle. A row whose windows are all farther away has the time until the next one, such as "in 3 h 20".
std::string WindowBar(const ActivationFacts& facts, DateTime now);

}  // namespace brelwin
