#include "qt/window/window_dialogs.h"

#include <QApplication>
#include <QMessageBox>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

QMessageBox::Icon ToolkitIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
  }
  return QMessageBox::NoIcon;
}

bool IsOpen(const QString& text) {
  for (auto* widget : QApplication::topLevelWidgets()) {
    const auto* box = qobject_cast<QMessageBox*>(widget);
    if (box != nullptr && box->isVisible() && box->text() == text) return true;
  }
  return false;
}

QWidget* ParentOfMessages() {
  if (auto* active = QApplication::activeWindow()) return active;
  for (auto* widget : QApplication::topLevelWidgets())
    if (widget->isVisible() && qobject_cast<QMessageBox*>(widget) == nullptr) return widget;
  return nullptr;
}

}  // namespace

void WindowDialogs::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  const auto message = ToQString(text);
  if (IsOpen(message)) return;
  auto* box =
      new QMessageBox(ToolkitIcon(icon), ToQString(title), message, QMessageBox::Ok, ParentOfMessages());
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace brelwin
