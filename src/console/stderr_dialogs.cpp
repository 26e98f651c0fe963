#include "console/stderr_dialogs.h"

#include <string>

namespace brelwin {

void StderrDialogs::ShowMessage(std::string_view text, std::string_view title, MessageIcon /*icon*/) {
  output_.Write(std::string(title) + ": " + std::string(text));
}

}  // namespace brelwin
