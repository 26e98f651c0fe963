#include "qt/window/text_box.h"

#include <QAction>
#include <QFocusEvent>
#include <QLineEdit>
#include <QStyle>
#include <QToolTip>
#include <memory>
#include <utility>

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

namespace {

bool StaysInBox(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
         reason == Qt::ActiveWindowFocusReason;
}

class LeaveWatcher final : public QObject {
 public:
  LeaveWatcher(QLineEdit& edit, std::function<void()> function)
      : QObject(&edit), function_(std::move(function)) {
    edit.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool left =
        event->type() == QEvent::FocusOut && !StaysInBox(static_cast<QFocusEvent*>(event)->reason());
    // The handler may show a message and move the focus itself: it runs when this move is done.
    if (left) QMetaObject::invokeMethod(this, function_, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> function_;
};

}  // namespace

void WhenLeft(QLineEdit& edit, std::function<void()> function) {
  QObject::connect(&edit, &QLineEdit::returnPressed, &edit, function);
  new LeaveWatcher(edit, std::move(function));  // the box owns it
}

}  // namespace brelwin
