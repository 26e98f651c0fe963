#include "qt/window/spot_line_delegate.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace brelwin {
namespace {

QPalette::ColorGroup ColorGroupOf(const QStyleOptionViewItem& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

// A spot that is only shown is greyed, but not where that could not be read.
QColor TextColor(const QStyleOptionViewItem& option, bool isTest) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const auto group = isTest && !isSelected ? QPalette::Disabled : ColorGroupOf(option);
  return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

// A bar at the edge, beside bold letters: dark palettes seldom have a second colour that can be read.
void MarkLine(QPainter& painter, const QStyleOptionViewItem& option) {
  auto edge = option.rect;
  edge.setWidth(SpotLineDelegate::Margin - 1);
  painter.fillRect(edge, option.palette.color(ColorGroupOf(option), QPalette::Highlight));
}

const QStyle& StyleOf(const QStyleOptionViewItem& option) {
  return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

}  // namespace

void SpotLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  StyleOf(option).drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
  const bool isMatched = index.data(SpotListModel::MatchedRole).toBool();
  if (isMatched) MarkLine(*painter, option);
  auto font = option.font;
  font.setBold(isMatched);
  painter->setFont(font);
  painter->setPen(TextColor(option, index.data(SpotListModel::TestRole).toBool()));
  const auto area = option.rect.adjusted(Margin, 0, -Margin, 0);
  painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, index.data().toString());
}

QSize SpotLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
  const QFontMetricsF metrics(option.font);
  const auto width = metrics.horizontalAdvance('0') * static_cast<double>(model_.LongestLine());
  return {static_cast<int>(std::ceil(width)) + 2 * Margin, static_cast<int>(std::ceil(metrics.height())) + 2};
}

}  // namespace brelwin
