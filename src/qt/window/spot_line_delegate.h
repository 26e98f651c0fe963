// Paints one line of the list: its text as it is, never shortened, in the fixed pitch of the columns.
#pragma once

#include <QStyledItemDelegate>

#include "qt/window/spot_list_model.h"

namespace brelwin {

class SpotLineDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // Blank space left and right of a line, in pixels.
  static constexpr int Margin = 4;

  explicit SpotLineDelegate(const SpotListModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  // Of every line alike: as wide as the longest.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const SpotListModel& model_;
};

}  // namespace brelwin
