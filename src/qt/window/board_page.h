// The Board tab: one row per activation, what is searched and hidden in it, and more about the selected one.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QWidget>
#include <vector>

#include "controls/screen.h"
#include "qt/window/board_details.h"
#include "qt/window/board_model.h"
#include "qt/window/board_table.h"

class QLabel;

namespace brelwin {

class BoardPage final : public QWidget {
  Q_OBJECT

 public:
  // All of it outlives the page.
  BoardPage(Screen& screen, BoardDoors doors);

  // Looks at the board. While somebody looks at a row, only the cells follow it; rows and their order wait.
  void Follow();

  // Takes up what waited.
  void TakeUp();

  // Selects this activation, if it is shown.
  void Select(RowNumber row);

 Q_SIGNALS:
  void Selected(RowNumber row);  // 0: none

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLayout* MakeTop();
  QWidget* MakeMiddle();
  QWidget* MakeEmpty();
  QLayout* MakeBottom();
  void Connect();
  void ReadBoxes();
  void KeepBoxes();
  void ViewChanged();
  void Apply(const BoardOrder& order);
  void TellWaiting(const BoardOrder& order);
  void TellFinished(const BoardOrder& order);
  void TellEmpty(const BoardOrder& order);
  void ShowDetails();
  void SwitchRBNOn();
  void OpenMenu(const QPoint& place);
  void OpenColumnMenu();
  void Export();
  void AddShortcut(const QKeySequence& keys, std::function<void()> run);

  Screen& screen_;
  BoardDoors doors_;
  BoardModel model_;
  BoardTable* table_;
  BoardDetails* details_;
  QStackedWidget* stack_;
  QLineEdit* search_;
  QCheckBox* onlyNeeded_;
  QCheckBox* hideWorked_;
  QPushButton* columns_;
  QPushButton* waiting_;
  QPushButton* finished_;
  QLabel* count_;
  QLabel* why_;
  QPushButton* switchOn_;
  BoardView view_;
  QTimer soon_;   // many events are one look
  QTimer again_;  // the time alone changes states
  std::vector<Watch> watches_;
};

}  // namespace brelwin
