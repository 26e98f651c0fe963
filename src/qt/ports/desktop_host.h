// The real outside world of one run: every port, gathered for the program.
#pragma once

#include <string>

#include "platform/host.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "qt/ports/desktop_shell.h"
#include "qt/ports/process_sound_player.h"
#include "qt/ports/qt_event_queue.h"
#include "qt/ports/qt_http_client.h"
#include "qt/ports/qt_socket_control.h"

namespace brelwin {

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
  Host world_;
};

}  // namespace brelwin
