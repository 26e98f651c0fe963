#include "qt/window/window_dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

QMessageBox::Icon QtIcon(MessageIcon icon) {
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

// Ready to be opened; null while the same message is open already.
QMessageBox* MakeBox(QMessageBox::Icon icon, std::string_view text, std::string_view title,
                     QMessageBox::StandardButtons buttons) {
  const auto message = ToQString(text);
  if (IsOpen(message)) return nullptr;
  auto* box = new QMessageBox(icon, ToQString(title), message, buttons, ParentOfMessages());
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  return box;
}

}  // namespace

void WindowDialogs::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  if (auto* box = MakeBox(QtIcon(icon), text, title, QMessageBox::Ok)) box->open();
}

void WindowDialogs::Ask(std::string_view question, std::string_view title, std::function<void()> onYes) {
  auto* box = MakeBox(QMessageBox::Question, question, title, QMessageBox::Yes | QMessageBox::No);
  if (box == nullptr) return;
  box->setDefaultButton(QMessageBox::No);
  QObject::connect(box, &QMessageBox::finished, box, [onYes = std::move(onYes)](int answer) {
    if (answer == QMessageBox::Yes) onYes();
  });
  box->open();
}

}  // namespace brelwin
