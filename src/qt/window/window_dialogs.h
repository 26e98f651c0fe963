// Message boxes of the window. The program goes on while one is open.
#pragma once

#include <QString>

#include "platform/shell.h"

class QWidget;

namespace brelwin {

class WindowDialogs final : public Dialogs {
 public:
  // The same message again, while it is still open, is not shown twice.
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  void Ask(std::string_view question, std::string_view title, std::function<void()> onYes) override;
};

}  // namespace brelwin
