// The columns of the board: what each says of an activation, as text and as what it is sorted by.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "board/activation_row.h"
#include "board/activation_state.h"

namespace brelwin {

enum class BoardColumn : std::uint8_t {
  State,
  Station,
  Summit,
  Name,
  Points,
  Window,
  Frequency,
  Mode,
  Skimmers,
  Continents,
  Signal,
  Speed,
  FirstHeard,
  LastHeard,
  Distance,
  Bearing,
  Activations,
  Needed,
  Gateway,
  Match,
};

inline constexpr std::size_t BoardColumnCount = 20;

struct BoardColumnInfo {
  BoardColumn Column = BoardColumn::State;
  std::string_view Key;      // in the settings file
  std::string_view Header;   // short, over the column
  std::string_view Meaning;  // for who points at the header, and for the exported file
  bool IsNumber = false;     // stands at the right
};

// All columns in the order that they have before the user moves them, each at the place of its number.
const std::array<BoardColumnInfo, BoardColumnCount>& BoardColumns();

// What is known of an activation beyond its row. What is not known is empty.
struct RowSurroundings {
  std::optional<double> DistanceInKm;
  std::optional<double> BearingInDegrees;
  std::optional<int> ActivationCount;  // how often the summit was activated
  std::string Continents;              // where the skimmers of the last 10 minutes are: "EU, NA"
  std::string Needed;                  // why the operator needs it, by his log
  bool IsNeeded = false;
  bool IsWorkedToday = false;
  std::string SummitName{};  // by the summit list, for a row that does not know it
  int Points = 0;            // the same; 0: not known
};

// A row at one moment.
struct RowMoment {
  const ActivationRow& Row;
  const RowSurroundings& Around;
  DateTime Now;  // UTC
  StateVerdict Verdict;
};
RowMoment MomentOf(const ActivationRow& row, const RowSurroundings& around, DateTime now);

// The text of a cell, one line; empty where nothing is known. Times are UTC.
std::string CellText(BoardColumn column, const RowMoment& moment);

// By what a cell is sorted: by the number first, then by the text. Cells that say nothing are last.
struct CellSortKey {
  bool SaysNothing = false;
  double Number = 0;
  std::string Text;

  auto operator<=>(const CellSortKey&) const = default;
};
CellSortKey SortKeyOf(BoardColumn column, const RowMoment& moment);

// The window of the announcement that matters, and how far it has gone: below 0 before it, above 1 after it.
struct WindowProgress {
  DateTime Begin;
  DateTime End;
  double Elapsed = 0;
};
std::optional<WindowProgress> WindowOf(const RowMoment& moment);

// The row as one sentence: "heard, G4ABC portable on G/LD-003, 14.062 CW, 12 skimmers".
std::string RowSentence(const RowMoment& moment);

// All columns of a row, or their meanings, as one line of a table with commas, without line end. Each cell is
// in quotes; one that a spreadsheet would take for a formula has a blank in front.
std::string CsvLine(const RowMoment& moment);
std::string CsvHeader();

}  // namespace brelwin
