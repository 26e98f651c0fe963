#include "qt/window/board_export.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QSaveFile>
#include <string>
#include <utility>

namespace brelwin {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view EndOfLine = "\r\n";

void TellFailure(QWidget& page, const QString& path, const QString& why) {
  auto* box = new QMessageBox(QMessageBox::Warning, "Brelwin", "Cannot write " + path + ": " + why,
                              QMessageBox::Ok, page.window());
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace

QByteArray BoardAsCsv(const BoardDoors& doors, const BoardView& view) {
  const auto now = doors.UTCNow();
  auto text = std::string(ByteOrderMark) + CsvHeader() + std::string(EndOfLine);
  const auto& board = doors.Rows;
  for (const auto number : OrderOf(board, view, doors.Surroundings, now).Rows) {
    const auto& row = *board.Find(number);
    const auto around = doors.Surroundings(row);
    text.append(CsvLine(MomentOf(row, around, now))).append(EndOfLine);
  }
  return QByteArray::fromStdString(text);
}

QString WriteExport(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit()) return {};
  return file.errorString();
}

void AskForExportFile(QWidget& page, std::function<QByteArray()> content) {
  auto* dialog = new QFileDialog(page.window(), "Export the board");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setNameFilters({"CSV files (*.csv)"});
  dialog->setDefaultSuffix("csv");
  QObject::connect(dialog, &QFileDialog::fileSelected, &page,
                   [&page, content = std::move(content)](const QString& path) {
                     const auto why = WriteExport(path, content());
                     if (!why.isEmpty()) TellFailure(page, path, why);
                   });
  dialog->open();
}

}  // namespace brelwin
