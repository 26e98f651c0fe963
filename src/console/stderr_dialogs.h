// Messages of a program without a window: one line each on the standard error output.
#pragma once

#include "platform/shell.h"
#include "qt/ports/line_output.h"

namespace brelwin {

class StderrDialogs final : public Dialogs {
 public:
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  void Ask(std::string_view question, std::string_view title, std::function<void()> onYes) override;

 private:
  LineOutput output_{2};
};

}  // namespace brelwin
