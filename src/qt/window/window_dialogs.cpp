#include "qt/window/window_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <utility>

#include "base/encoding.h"
#include "qt/ports/qt_text.h"

namespace brelwin {

namespace {

QFileDialog* MakeDialog(QAbstractButton& button, TextBox& box, const QString& title) {
  auto* dialog = new QFileDialog(button.window(), title);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                   [&box](const QString& path) { box.Text = path.toStdString(); });
  return dialog;
}

// Lines are added to a log that is there already, so there is nothing to warn of.
void AskForLogFile(QAbstractButton& button, TextBox& box) {
  auto* dialog = MakeDialog(button, box, "Log file");
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setLabelText(QFileDialog::Accept, "Choose");
  dialog->setNameFilters({".TXT Files (*.TXT)", ".CSV Files (*.CSV)"});
  dialog->setDefaultSuffix("txt");
  QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
    dialog->setDefaultSuffix(filter.startsWith(".CSV") ? "csv" : "txt");
  });
  dialog->open();
}

void AskForSoundFile(QAbstractButton& button, TextBox& box) {
  auto* dialog = MakeDialog(button, box, "Sound file");
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setNameFilters({"Wave files (*.wav)", "All files (*)"});
  dialog->open();
}

}  // namespace

void PickLogFile(QAbstractButton& button, TextBox& box) {
  QObject::connect(&button, &QAbstractButton::clicked, &button,
                   [&button, &box] { AskForLogFile(button, box); });
}

void PickSoundFile(QAbstractButton& button, TextBox& box) {
  QObject::connect(&button, &QAbstractButton::clicked, &button,
                   [&button, &box] { AskForSoundFile(button, box); });
}

void PickFile(QAbstractButton& button, FileKind kind, std::function<void(const std::string& path)> take) {
  const auto ask = [&button, kind = std::move(kind), take = std::move(take)] {
    auto* dialog = new QFileDialog(button.window(), kind.Title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(kind.Filters);
    QObject::connect(dialog, &QFileDialog::fileSelected, &button,
                     [take](const QString& path) { take(path.toStdString()); });
    dialog->open();
  };
  QObject::connect(&button, &QAbstractButton::clicked, &button, ask);
}

namespace {

constexpr std::size_t MostBytes = std::size_t{4} * 1024 * 1024;
constexpr QSize ViewerSize{900, 600};

std::string_view EndOf(std::string_view bytes) {
  if (bytes.size() <= MostBytes) return bytes;
  bytes.remove_prefix(bytes.size() - MostBytes);
  bytes.remove_prefix(bytes.find('\n') + 1);
  return bytes;
}

}  // namespace

bool ShowTextFile(const Files& files, std::string_view path) {
  const auto bytes = files.Read(path);
  if (!bytes) return false;
  auto* viewer = new QPlainTextEdit;
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  viewer->setWindowTitle(QFileInfo(ToQString(path)).fileName());
  viewer->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  viewer->setLineWrapMode(QPlainTextEdit::NoWrap);
  viewer->setReadOnly(true);
  viewer->setPlainText(ToQString(TextFromBytes(EndOf(*bytes))));
  viewer->resize(ViewerSize);
  viewer->show();
  return true;
}

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
