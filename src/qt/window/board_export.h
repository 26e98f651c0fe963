// The board as a file that spreadsheets read.
#pragma once

#include <QByteArray>
#include <functional>

#include "qt/window/board_model.h"

class QWidget;

namespace brelwin {

// A heading, and the rows that the view wants: UTF-8 with the mark that spreadsheets look for.
QByteArray BoardAsCsv(const BoardDoors& doors, const BoardView& view);

// Writes the whole file or leaves what was there. Empty, or why it could not be written.
QString WriteExport(const QString& path, const QByteArray& content);

// Asks for a file and writes into it what the function then gives. A failure is told.
void AskForExportFile(QWidget& page, std::function<QByteArray()> content);

}  // namespace brelwin
