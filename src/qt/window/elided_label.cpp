#include "qt/window/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace brelwin {

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool isCut = WhatFits() != text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text().toHtmlEscaped() : QString(),
                     this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        WhatFits(), foregroundRole());
}

QString ElidedLabel::WhatFits() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

}  // namespace brelwin
