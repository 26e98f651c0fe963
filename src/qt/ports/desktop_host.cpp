#include "qt/ports/desktop_host.h"

#include <utility>

#include "platform/environment.h"

namespace brelwin {

DesktopHost::DesktopHost(std::string programFolder, Dialogs& dialogs, DesktopShell::Viewer ownViewer)
    : internet_(ReadProxySettings(EnvironmentVariable)),
      shell_(std::move(ownViewer)),
      world_{
          clock_, events_, files_, internet_, sockets_, sound_, shell_, dialogs, std::move(programFolder)} {}

}  // namespace brelwin
