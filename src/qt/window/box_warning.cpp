#include "qt/window/box_warning.h"

#include <QAction>
#include <QLineEdit>
#include <QStyle>
#include <QToolTip>

namespace brelwin {

BoxWarning::BoxWarning(QLineEdit& box) : box_(&box), ownTip_(box.toolTip()) {}

void BoxWarning::Show(const QString& warning) {
  const bool isWrong = !warning.isEmpty();
  if (mark_ == nullptr && !isWrong) return;
  if (mark_ == nullptr) MakeMark();
  mark_->setVisible(isWrong);
  mark_->setToolTip(warning);
  box_->setAccessibleDescription(warning);
  box_->setToolTip(isWrong ? warning + "\n" + ownTip_ : ownTip_);
  if (box_->hasFocus()) QToolTip::showText(box_->mapToGlobal(box_->rect().bottomLeft()), warning, box_);
}

void BoxWarning::MakeMark() {
  const auto icon = box_->style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, box_);
  mark_ = box_->addAction(icon, QLineEdit::TrailingPosition);
}

}  // namespace brelwin
