// A one-line label for texts of any length: it gives way to its neighbours, shows what fits and the whole
// text as a tooltip.
#pragma once

#include <QLabel>

namespace brelwin {

class ElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString WhatFits() const;
};

}  // namespace brelwin
