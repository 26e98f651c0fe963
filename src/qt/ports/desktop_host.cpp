#include "qt/ports/desktop_host.h"

#include <QProcess>
#include <QStandardPaths>
#include <utility>

#include "base/text.h"
#include "core/file_names.h"
#include "platform/file_paths.h"
#include "platform/system_information.h"
#include "qt/ports/qt_text.h"

namespace brelwin {

namespace {

// Hands the document to the desktop, which keeps its program running beside ours and after it.
bool OpenWithDesktop(const QString& document) {
  const auto opener = QStandardPaths::findExecutable("xdg-open");
  if (opener.isEmpty()) return false;
  QProcess process;
  process.setProgram(opener);
  process.setArguments({document});
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

bool IsAddress(std::string_view text) {
  return Contains(text, "://");
}

}  // namespace

DesktopShell::DesktopShell(Viewer ownViewer) : ownViewer_(std::move(ownViewer)) {}

bool DesktopShell::Open(std::string_view pathOrAddress) {
  const auto document = IsAddress(pathOrAddress) ? std::string(pathOrAddress) : ResolvePath(pathOrAddress);
  return OpenWithDesktop(ToQString(document));
}

bool DesktopShell::ViewText(std::string_view path) {
  if (Open(path)) return true;
  return ownViewer_ && ownViewer_(ResolvePath(path));
}

DesktopHost::DesktopHost(std::string programFolder, Dialogs& dialogs, DesktopShell::Viewer ownViewer)
    : internet_(ReadProxySettings(EnvironmentVariable)),
      shell_(std::move(ownViewer)),
      store_(ResolvePath(programFolder + "/" + std::string(BoardDatabaseFile)), clock_),
      world_{clock_, events_, files_,  internet_, sockets_,
             sound_, shell_,  dialogs, store_,    std::move(programFolder)} {}

}  // namespace brelwin
