// Paints the cells of the board: a window as its times and a bar that shows how far "now" has gone in it, and
// numbers with a blank between them and the next column.
#pragma once

#include <QStyledItemDelegate>

#include "qt/window/board_model.h"

namespace brelwin {

class BoardDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  BoardDelegate(const BoardModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  void PaintWindow(QPainter& painter, QStyleOptionViewItem cell, const WindowProgress& window) const;

  const BoardModel& model_;
};

}  // namespace brelwin
