// The table of the board: its columns are the user's to hide, move and sort by, with the mouse and by
// keyboard.
#pragma once

#include <QTableView>

#include "board/column_layout.h"
#include "controls/control.h"
#include "qt/window/board_model.h"

class QMenu;

namespace brelwin {

class BoardTable final : public QTableView {
  Q_OBJECT

 public:
  // The layout of the columns is that of the text, and every change of it goes there.
  BoardTable(BoardModel& model, KeptText& columns);

  const ColumnLayout& Layout() const { return layout_; }

  // Whether somebody looks at a row: the pointer is over them, or one is selected and has the focus.
  bool IsLookedAt() const;

  // What is done to the columns, for whatever opens a menu.
  void FillColumnMenu(QMenu& menu);

  // The row that is selected; null without one.
  const ActivationRow* Selected() const;

  // The selected row's shown cells, parted by tabs, to the clipboard.
  void CopyRow() const;

 Q_SIGNALS:
  void SortingChanged();
  void LookedAway();
  void RowSelected();
  void MenuWanted(const QPoint& place);

 protected:
  bool viewportEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SetUp();
  void FollowHeader();
  void ApplyLayout();
  void Place(const ColumnPlace& place, int visual);
  void KeepLayout();
  void ShowColumn(BoardColumn column, bool shown);
  void SortBy(std::optional<BoardColumn> column, bool isDescending);
  void MoveColumn(int step);
  void AddColumnActions(QMenu& menu);
  void AddSortActions(QMenu& menu);
  void TellSpokenColumn();

  BoardModel& model_;
  KeptText& columns_;
  ColumnLayout layout_;
  bool applying_ = false;
  Watch watch_;
};

}  // namespace brelwin
