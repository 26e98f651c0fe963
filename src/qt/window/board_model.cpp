#include "qt/window/board_model.h"

#include <algorithm>
#include <utility>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

const BoardColumnInfo& InfoOf(int column) {
  return BoardColumns()[static_cast<std::size_t>(column)];
}

int Side(const BoardColumnInfo& info) {
  return static_cast<int>(info.IsNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

// Those of the rows that are, or are not, among others; in their order.
template <class Others>
std::vector<RowNumber> Among(const std::vector<RowNumber>& rows, const Others& others, bool wanted) {
  std::vector<RowNumber> chosen;
  for (const auto row : rows)
    if (others.contains(row) == wanted) chosen.push_back(row);
  return chosen;
}

}  // namespace

int BoardModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int BoardModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(BoardColumnCount);
}

const ActivationRow* BoardModel::RowAt(int place) const {
  if (place < 0 || place >= rowCount()) return nullptr;
  return doors_.Rows.Find(rows_[static_cast<std::size_t>(place)]);
}

int BoardModel::PlaceOf(RowNumber number) const {
  const auto place = placeOf_.find(number);
  return place == placeOf_.end() ? -1 : place->second;
}

RowMoment BoardModel::MomentOfRow(const ActivationRow& row) const {
  const auto now = doors_.UTCNow();
  const auto revision = doors_.Rows.Revision();
  if (looked_.Number != row.Number || looked_.Revision != revision || looked_.Now != now)
    looked_ = {row.Number, revision, now, doors_.Surroundings(row), StateOf(row.Facts, now)};
  return {row, looked_.Around, now, looked_.Verdict};
}

QVariant BoardModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) return Side(InfoOf(index.column()));
  const auto* row = RowAt(index.row());
  return row == nullptr ? QVariant() : TextOf(*row, InfoOf(index.column()).Column, role);
}

QVariant BoardModel::TextOf(const ActivationRow& row, BoardColumn column, int role) const {
  const bool isSpokenColumn = static_cast<int>(column) == spokenColumn_;
  const bool isSpoken = role == (isSpokenColumn ? Qt::AccessibleTextRole : Qt::AccessibleDescriptionRole);
  if (isSpoken) return ToQString(RowSentence(MomentOfRow(row)));
  switch (role) {
    case Qt::DisplayRole: return ToQString(CellText(column, MomentOfRow(row)));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return Tip(MomentOfRow(row), column);
    default: return {};
  }
}

QString BoardModel::Tip(const RowMoment& moment, BoardColumn column) const {
  if (column == BoardColumn::State)
    return ToQString(ReasonInWords(moment.Verdict, moment.Row.Facts, moment.Now));
  return ToQString(CellText(column, moment));
}

QVariant BoardModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const auto& info = InfoOf(section);
  switch (role) {
    case Qt::DisplayRole: return ToQString(info.Header);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole: return HeaderTip(info);
    case Qt::TextAlignmentRole: return Side(info);
    default: return {};
  }
}

QString BoardModel::HeaderTip(const BoardColumnInfo& info) const {
  const auto missing = doors_.Missing ? doors_.Missing(info.Column) : std::string();
  return ToQString(info.Meaning) + (missing.empty() ? QString() : ".\n" + ToQString(missing));
}

// What goes is moved to the end first, so that it goes in one piece; what comes, comes in one piece.
void BoardModel::Show(const std::vector<RowNumber>& rows) {
  if (rows == rows_) return;
  std::unordered_map<RowNumber, int> wanted;
  for (const auto row : rows) wanted.emplace(row, 0);
  const auto gone = Among(rows_, wanted, false);
  if (!gone.empty()) {
    auto stayFirst = Among(rows_, wanted, true);
    stayFirst.insert(stayFirst.end(), gone.begin(), gone.end());
    Reorder(std::move(stayFirst));
    RemoveTail(gone.size());
  }
  Append(Among(rows, placeOf_, false));
  Reorder(rows);
}

void BoardModel::Reorder(std::vector<RowNumber> rows) {
  if (rows == rows_) return;
  Q_EMIT layoutAboutToBeChanged();
  const auto before = std::exchange(rows_, std::move(rows));
  NotePlaces();
  for (const auto& index : persistentIndexList()) {
    const auto place = placeOf_.at(before[static_cast<std::size_t>(index.row())]);
    changePersistentIndex(index, this->index(place, index.column()));
  }
  Q_EMIT layoutChanged();
}

void BoardModel::RemoveTail(std::size_t count) {
  const auto first = rows_.size() - count;
  beginRemoveRows({}, static_cast<int>(first), rowCount() - 1);
  rows_.resize(first);
  NotePlaces();
  endRemoveRows();
}

void BoardModel::Append(const std::vector<RowNumber>& rows) {
  if (rows.empty()) return;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(rows.size()) - 1);
  rows_.insert(rows_.end(), rows.begin(), rows.end());
  NotePlaces();
  endInsertRows();
}

void BoardModel::NotePlaces() {
  placeOf_.clear();
  placeOf_.reserve(rows_.size());
  for (const auto row : rows_) placeOf_.emplace(row, static_cast<int>(placeOf_.size()));
}

void BoardModel::RefreshChanged() {
  const auto& board = doors_.Rows;
  for (const auto number : board.ChangedSince(shown_)) {
    const auto place = PlaceOf(number);
    if (place >= 0) Q_EMIT dataChanged(index(place, 0), index(place, columnCount() - 1));
  }
  shown_ = board.Revision();
}

void BoardModel::RefreshAll() {
  shown_ = doors_.Rows.Revision();
  if (!rows_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

}  // namespace brelwin
