#include "qt/window/file_pickers.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <utility>

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

}  // namespace brelwin
