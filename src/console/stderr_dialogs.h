// Messages of a program without a window: one line each on the standard error output.
#pragma once

#include "platform/shell.h"
#include "qt/ports/line_output.h"

namespace brelwin {

class StderrDialogs final : public Dialogs {
 public:
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;

 private:
  LineOutput output_{2};
};

}  // namespace brelwin
