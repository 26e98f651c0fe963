#include "console/stderr_dialogs.h"

#include <string>

namespace brelwin {

void StderrDialogs::ShowMessage(std::string_view text, std::string_view title, MessageIcon /*icon*/) {
  output_.Write(std::string(title) + ": " + std::string(text));
}

void StderrDialogs::Ask(std::string_view question, std::string_view title, std::function<void()> /*onYes*/) {
  ShowMessage(question, title, MessageIcon::Exclamation);
}

}  // namespace brelwin
