// Shows the board without a window: as a table that is drawn anew in a terminal, elsewhere as a line for each
// change of a row.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "board/board_keeper.h"
#include "board/board_text.h"
#include "controls/screen.h"
#include "platform/host.h"
#include "platform/terminal.h"

namespace brelwin {

// A terminal is drawn anew within a quarter of a second of a change, and every second, since the time alone
// changes the board; its size is asked for each time. The lines of a file or pipe come as fast.
class BoardPrinter {
 public:
  struct Output {
    std::function<void(std::string_view text)> Print;   // a line feed comes behind it
    std::function<std::optional<TerminalSize>()> Size;  // empty where there is no terminal
  };

  BoardPrinter(Host& world, BoardKeeper& keeper, SurroundingsOf surroundings, const Screen& screen,
               Output output);
  BoardPrinter(const BoardPrinter&) = delete;
  BoardPrinter& operator=(const BoardPrinter&) = delete;
  ~BoardPrinter();

 private:
  void ShowIn(Milliseconds delay);
  void Show();
  void Draw(TerminalSize size);
  void PrintChanges();
  std::string EmptyText() const;

  Host& world_;
  const Board& board_;
  const SurroundingsOf surroundings_;
  const Screen& screen_;
  Output output_;
  const bool isTerminal_;
  std::map<RowNumber, RowFace> faces_;  // as they were printed
  std::string lastEmptyText_;
  TimerHandle next_;
  Instant nextAt_;
  Watch watch_;
};

}  // namespace brelwin
