#include "qt/window/leave_watcher.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <memory>
#include <utility>

namespace brelwin {
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
