// A day of the board played again, in a window of its own.
#pragma once

#include <QDateTimeEdit>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <optional>
#include <vector>

#include "board/board.h"
#include "board/replay.h"
#include "controls/screen.h"
#include "platform/host.h"
#include "qt/window/board_page.h"

namespace brelwin {

class ReplayWindow final : public QDialog {
  Q_OBJECT

 public:
  // Plays what `world` has kept of the last 30 days. `doors` are those of the live board; all of it outlives
  // the window.
  ReplayWindow(Screen& screen, const BoardDoors& doors, Host& world, QWidget* parent);
  ReplayWindow(const ReplayWindow&) = delete;
  ReplayWindow& operator=(const ReplayWindow&) = delete;
  ~ReplayWindow() override;

  // Plays from the chosen moment to the end of its UTC day, on an empty board.
  void Play();

 private:
  QLayout* MakeTop();
  BoardDoors OwnDoors();
  void ShowEmptyBoard();
  void Begin(DateTime begin, DateTime end, std::vector<TimedEvent> events);
  void Advance();
  DateTime Now() const;

  Screen& screen_;
  const BoardDoors& live_;
  Host& world_;
  Board board_;
  Signal changed_;
  std::optional<Replay> replay_;
  QDateTimeEdit* begin_;
  QSpinBox* speed_;
  QPushButton* play_;
  QLabel* state_;
  BoardPage* page_ = nullptr;
  QTimer next_;
};

}  // namespace brelwin
