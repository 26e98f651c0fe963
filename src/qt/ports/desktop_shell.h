// Opening documents, web pages and text files with the desktop's own programs.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/shell.h"

namespace brelwin {

class DesktopShell final : public Shell {
 public:
  // Shows a text file when the desktop cannot; false when it cannot be shown either.
  using Viewer = std::function<bool(std::string_view path)>;

  explicit DesktopShell(Viewer ownViewer = {});

  bool Open(std::string_view pathOrAddress) override;
  bool ViewText(std::string_view path) override;

 private:
  const Viewer ownViewer_;
};

}  // namespace brelwin
