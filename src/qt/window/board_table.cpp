#include "qt/window/board_table.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <array>

#include "qt/ports/qt_text.h"
#include "qt/window/board_delegate.h"

namespace brelwin {
namespace {

// At first, in digits, by the number of the column.
constexpr std::array<int, BoardColumnCount> Digits{20, 13, 12, 22, 6, 34, 20, 7,  6,  10,
                                                   8,  9,  8,  8,  8, 7,  7,  16, 30, 30};

constexpr int BlankAboveAndBelow = 4;  // of a row, in pixels

QString MeaningOf(BoardColumn column) {
  return ToQString(BoardColumns()[static_cast<std::size_t>(column)].Meaning);
}

}  // namespace

BoardTable::BoardTable(BoardModel& model, KeptText& columns) : model_(model), columns_(columns) {
  setObjectName("board");
  setAccessibleName("Board");
  setAccessibleDescription("One row for each activation. Ctrl+Shift with Left or Right moves the column.");
  SetUp();
  setModel(&model);
  setItemDelegate(new BoardDelegate(model, this));
  ApplyLayout();
  FollowHeader();
  watch_ = columns_.Text.WhenChanged([this] {
    if (!applying_) ApplyLayout();
  });
}

void BoardTable::SetUp() {
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * BlankAboveAndBelow);
  auto* header = horizontalHeader();
  header->setSectionsMovable(true);
  header->setSectionsClickable(true);
  header->setSortIndicatorShown(true);
  header->setSortIndicatorClearable(true);
  header->setHighlightSections(false);
  header->setContextMenuPolicy(Qt::CustomContextMenu);
}

void BoardTable::FollowHeader() {
  auto* header = horizontalHeader();
  connect(header, &QHeaderView::sectionMoved, this, &BoardTable::KeepLayout);
  connect(header, &QHeaderView::sectionResized, this, &BoardTable::KeepLayout);
  connect(header, &QHeaderView::sortIndicatorChanged, this, [this](int column, Qt::SortOrder order) {
    if (applying_) return;
    const auto sorted = column < 0 ? std::nullopt : std::optional(static_cast<BoardColumn>(column));
    SortBy(sorted, sorted && order == Qt::DescendingOrder);
  });
  connect(header, &QHeaderView::customContextMenuRequested, this, [this, header](const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillColumnMenu(*menu);
    menu->popup(header->mapToGlobal(place));
  });
}

void BoardTable::ApplyLayout() {
  const QScopedValueRollback<bool> applying(applying_, true);
  layout_ = ReadColumnLayout(columns_.Text.Get());
  for (int visual = 0; visual < static_cast<int>(layout_.Places.size()); ++visual)
    Place(layout_.Places[static_cast<std::size_t>(visual)], visual);
  horizontalHeader()->setSortIndicator(layout_.SortedBy ? static_cast<int>(*layout_.SortedBy) : -1,
                                       layout_.IsDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
  TellSpokenColumn();
  Q_EMIT SortingChanged();
}

void BoardTable::Place(const ColumnPlace& place, int visual) {
  const auto column = static_cast<int>(place.Column);
  const auto wide = Digits[static_cast<std::size_t>(column)] * fontMetrics().horizontalAdvance('0');
  setColumnHidden(column, false);  // a hidden one takes no width
  horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), visual);
  horizontalHeader()->resizeSection(column, place.Width > 0 ? place.Width : wide);
  setColumnHidden(column, place.IsHidden);
}

// The order and the widths are the header's; a hidden column keeps the width that it had.
void BoardTable::KeepLayout() {
  if (applying_) return;
  const QScopedValueRollback<bool> applying(applying_, true);
  for (auto& place : layout_.Places)
    if (!place.IsHidden) place.Width = columnWidth(static_cast<int>(place.Column));
  std::ranges::sort(layout_.Places, {}, [this](const ColumnPlace& place) {
    return horizontalHeader()->visualIndex(static_cast<int>(place.Column));
  });
  TellSpokenColumn();
  columns_.Text = ColumnLayoutText(layout_);
}

void BoardTable::ShowColumn(BoardColumn column, bool shown) {
  std::ranges::find(layout_.Places, column, &ColumnPlace::Column)->IsHidden = !shown;
  columns_.Text = ColumnLayoutText(layout_);
}

void BoardTable::SortBy(std::optional<BoardColumn> column, bool isDescending) {
  layout_.SortedBy = column;
  layout_.IsDescending = isDescending;
  columns_.Text = ColumnLayoutText(layout_);
}

// Past the hidden ones.
void BoardTable::MoveColumn(int step) {
  auto* header = horizontalHeader();
  const auto from = header->visualIndex(currentIndex().column());
  auto to = from + step;
  while (from >= 0 && to >= 0 && to < header->count() && header->isSectionHidden(header->logicalIndex(to)))
    to += step;
  if (from < 0 || to < 0 || to >= header->count()) return;
  header->moveSection(from, to);
  scrollTo(currentIndex());
}

void BoardTable::FillColumnMenu(QMenu& menu) {
  AddColumnActions(menu);
  menu.addSeparator();
  AddSortActions(*menu.addMenu("&Sort by"));
  menu.addAction("&All as at first", this, [this] { columns_.Text = std::string(); });
}

void BoardTable::AddColumnActions(QMenu& menu) {
  const auto shown = std::ranges::count(layout_.Places, false, &ColumnPlace::IsHidden);
  for (const auto& place : layout_.Places) {
    auto* action = menu.addAction(MeaningOf(place.Column));
    action->setCheckable(true);
    action->setChecked(!place.IsHidden);
    action->setEnabled(place.IsHidden || shown > 1);
    connect(action, &QAction::toggled, this,
            [this, column = place.Column](bool checked) { ShowColumn(column, checked); });
  }
}

void BoardTable::AddSortActions(QMenu& menu) {
  auto* group = new QActionGroup(&menu);
  const auto add = [&](const QString& text, std::optional<BoardColumn> column, bool isDescending) {
    auto* action = group->addAction(text);
    action->setCheckable(true);
    action->setChecked(layout_.SortedBy == column && layout_.IsDescending == isDescending);
    connect(action, &QAction::triggered, this, [=, this] { SortBy(column, isDescending); });
  };
  add("What happens: on the air, due, announced, quiet", {}, false);
  for (const auto& place : layout_.Places) {
    if (place.IsHidden) continue;
    add(MeaningOf(place.Column), place.Column, false);
    add(MeaningOf(place.Column) + ", downwards", place.Column, true);
  }
  menu.addActions(group->actions());
}

void BoardTable::TellSpokenColumn() {
  const auto first = std::ranges::find(layout_.Places, false, &ColumnPlace::IsHidden);
  model_.SetSpokenColumn(static_cast<int>(first->Column));
}

const ActivationRow* BoardTable::Selected() const {
  const auto rows = selectionModel()->selectedRows();
  return rows.isEmpty() ? nullptr : model_.RowAt(rows.front().row());
}

void BoardTable::CopyRow() const {
  const auto* row = Selected();
  if (row == nullptr) return;
  QStringList cells;
  for (const auto& place : layout_.Places)
    if (!place.IsHidden) cells << ToQString(CellText(place.Column, model_.MomentOfRow(*row)));
  QApplication::clipboard()->setText(cells.join('\t'));
}

bool BoardTable::IsLookedAt() const {
  const auto* focus = QApplication::focusWidget();
  const bool isUsed = focus != nullptr && parentWidget()->isAncestorOf(focus);
  return viewport()->underMouse() || (isUsed && selectionModel()->hasSelection());
}

bool BoardTable::viewportEvent(QEvent* event) {
  const bool done = QTableView::viewportEvent(event);
  if (event->type() == QEvent::Leave) Q_EMIT LookedAway();
  return done;
}

void BoardTable::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  Q_EMIT LookedAway();
}

void BoardTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  Q_EMIT RowSelected();
}

void BoardTable::keyPressEvent(QKeyEvent* event) {
  constexpr auto toMove = Qt::ControlModifier | Qt::ShiftModifier;
  const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
  if (isSideways && (event->modifiers() & toMove) == toMove) {
    MoveColumn(event->key() == Qt::Key_Left ? -1 : 1);
  } else if (event->matches(QKeySequence::Copy)) {
    CopyRow();
  } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    Q_EMIT MenuWanted(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
  } else if (event->key() == Qt::Key_Escape && selectionModel()->hasSelection()) {
    clearSelection();
    Q_EMIT LookedAway();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void BoardTable::contextMenuEvent(QContextMenuEvent* event) {
  const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
  const auto beside = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
  Q_EMIT MenuWanted(isByKey ? beside : event->globalPos());
}

}  // namespace brelwin
