// The rows of the board as a table: one row per activation, known by its number, one column per fact.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/observable.h"
#include "board/board.h"
#include "board/board_order.h"

namespace brelwin {

// What the board's page rests on, and what it asks of the program. All of it outlives the page.
struct BoardDoors {
  const Board& Rows;
  Signal& Changed;
  std::function<DateTime()> UTCNow;
  SurroundingsOf Surroundings;
  std::function<void(const std::string& summit)> OpenSummit;
  std::function<void(const std::string& baseCallsign)> OpenStation;
  std::function<void()> OpenReplay{};                 // may be empty: there is nothing to play again
  std::function<std::string(BoardColumn)> Missing{};  // why a column can say nothing; may be empty
};

class BoardModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  BoardModel(const BoardDoors& doors, QObject* parent) : QAbstractTableModel(parent), doors_(doors) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  // Shows these rows in this order. Rows that stay keep their selection.
  void Show(const std::vector<RowNumber>& rows);

  // Shows anew what changed on the board since the last time, or all of it: the time alone changes much.
  void RefreshChanged();
  void RefreshAll();

  const std::vector<RowNumber>& Rows() const { return rows_; }

  // At a place of the table. Null when the board has forgotten the row, or when there is none.
  const ActivationRow* RowAt(int place) const;

  // Where the row is; below 0 when it is not shown.
  int PlaceOf(RowNumber number) const;

  // The row as it is now. The moment holds until the next one is asked for.
  RowMoment MomentOfRow(const ActivationRow& row) const;

  // The column whose cells are read to a screen reader as the whole row.
  void SetSpokenColumn(int column) { spokenColumn_ = column; }

 private:
  QVariant TextOf(const ActivationRow& row, BoardColumn column, int role) const;
  QString HeaderTip(const BoardColumnInfo& info) const;
  QString Tip(const RowMoment& moment, BoardColumn column) const;
  void Reorder(std::vector<RowNumber> rows);
  void RemoveTail(std::size_t count);
  void Append(const std::vector<RowNumber>& rows);
  void NotePlaces();

  // Neighbouring cells are asked for one after the other.
  struct Looked {
    RowNumber Number = 0;
    BoardRevision Revision = 0;
    DateTime Now;
    RowSurroundings Around;
    StateVerdict Verdict;
  };

  const BoardDoors& doors_;
  std::vector<RowNumber> rows_;
  std::unordered_map<RowNumber, int> placeOf_;
  BoardRevision shown_ = 0;
  int spokenColumn_ = 0;
  mutable Looked looked_;
};

}  // namespace brelwin
