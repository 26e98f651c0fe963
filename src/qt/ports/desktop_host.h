// The real outside world of one run: every port, gathered for the program, and the desktop's own programs
// for documents and pages.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "platform/shell.h"
#include "platform/sqlite_activation_store.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "qt/ports/process_sound_player.h"
#include "qt/ports/qt_event_queue.h"
#include "qt/ports/qt_http_transfer.h"
#include "qt/ports/qt_socket_control.h"

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

// To be made after the application object. `dialogs` must outlive it.
class DesktopHost {
 public:
  DesktopHost(std::string programFolder, Dialogs& dialogs, DesktopShell::Viewer ownViewer = {});

  Host& World() { return world_; }
  QtEventQueue& Events() { return events_; }

 private:
  SystemClock clock_;
  QtEventQueue events_;
  SystemFiles files_;
  QtHttpClient internet_;
  QtSocketControls sockets_;
  ProcessSoundPlayer sound_;
  DesktopShell shell_;
  SqliteActivationStore store_;
  Host world_;
};

}  // namespace brelwin
