#include "qt/window/board_delegate.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace brelwin {
namespace {

constexpr int Blank = 6;        // around the bar, in pixels
constexpr int NowWidth = 2;     // of the stroke that stands for now
constexpr int MostHeight = 10;  // of the bar
constexpr int BarShare = 3;     // one part in so many of the cell is the bar's

QColor LineColor(const QStyleOptionViewItem& option) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  return option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
}

QRect BarIn(const QRect& cell) {
  const auto height = std::min(MostHeight, cell.height() - Blank);
  const auto width = cell.width() / BarShare - 2 * Blank;
  return {cell.right() - Blank - width, cell.center().y() - height / 2, width, height};
}

// Before the window the stroke stands left of an empty bar, after it right of a full one.
void PaintBar(QPainter& painter, const QRect& bar, double elapsed, const QColor& color) {
  const auto gone = std::clamp(elapsed, 0.0, 1.0);
  const auto now = bar.left() + static_cast<int>(gone * bar.width());
  auto faint = color;
  faint.setAlphaF(0.4F);
  painter.setPen(color);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bar.adjusted(0, 0, -1, -1));
  painter.fillRect(QRect(bar.topLeft(), QPoint(now - 1, bar.bottom())), faint);
  const auto stroke = elapsed < 0 ? bar.left() - NowWidth - 2 : elapsed > 1 ? bar.right() + 2 : now;
  painter.fillRect(QRect(stroke, bar.top() - 3, NowWidth, bar.height() + 6), color);
}

}  // namespace

void BoardDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->displayAlignment.testFlag(Qt::AlignRight)) option->text += "  ";
}

void BoardDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const bool isWindow = index.column() == static_cast<int>(BoardColumn::Window);
  const auto* row = isWindow ? model_.RowAt(index.row()) : nullptr;
  const auto window = row == nullptr ? std::nullopt : WindowOf(model_.MomentOfRow(*row));
  if (!window) return QStyledItemDelegate::paint(painter, option, index);
  auto cell = option;
  initStyleOption(&cell, index);
  painter->save();
  PaintWindow(*painter, cell, *window);
  painter->restore();
}

void BoardDelegate::PaintWindow(QPainter& painter, QStyleOptionViewItem cell,
                                const WindowProgress& window) const {
  const auto* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  const auto text = std::exchange(cell.text, {});
  style->drawControl(QStyle::CE_ItemViewItem, &cell, &painter, cell.widget);
  const auto bar = BarIn(cell.rect);
  PaintBar(painter, bar, window.Elapsed, LineColor(cell));
  auto room = cell.rect.adjusted(3, 0, 0, 0);
  room.setRight(bar.left() - Blank);
  painter.setPen(LineColor(cell));
  const auto fitting = cell.fontMetrics.elidedText(text, Qt::ElideRight, room.width());
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

}  // namespace brelwin
