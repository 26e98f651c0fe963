// Asking for a file name. The dialogs do not hold up the program behind them.
#pragma once

#include <QStringList>
#include <functional>
#include <string>

#include "controls/control.h"

class QAbstractButton;

namespace brelwin {

// Makes the button ask for a log file, which need not exist, and put its path into the box.
void PickLogFile(QAbstractButton& button, TextBox& box);

// The same for a wave file that exists.
void PickSoundFile(QAbstractButton& button, TextBox& box);

// The same for any file that exists, whose path is handed over.
struct FileKind {
  const char* Title;
  QStringList Filters;
};
void PickFile(QAbstractButton& button, FileKind kind, std::function<void(const std::string& path)> take);

}  // namespace brelwin
