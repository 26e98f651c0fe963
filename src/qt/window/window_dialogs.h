// What the window asks and tells outside of its tabs: messages, file names, a text file to read. The program
// goes on while any of them is open.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <string_view>

#include "controls/control.h"
#include "platform/files.h"
#include "platform/shell.h"

class QAbstractButton;
class QWidget;

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

// Of a very long file the end is shown. False when the file cannot be read.
bool ShowTextFile(const Files& files, std::string_view path);

class WindowDialogs final : public Dialogs {
 public:
  // The same message again, while it is still open, is not shown twice.
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  void Ask(std::string_view question, std::string_view title, std::function<void()> onYes) override;
};

}  // namespace brelwin
