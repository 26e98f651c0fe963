// The outside world in one hand: the ports and where the program lives. It has no logic.
#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/event_queue.h"
#include "platform/files.h"
#include "platform/http.h"
#include "platform/shell.h"
#include "platform/socket_control.h"
#include "platform/sound.h"

namespace brelwin {

struct Host {
  Clock& Time;
  EventQueue& Events;
  Files& Disk;
  HttpClient& Internet;
  SocketControls& Sockets;
  SoundPlayer& Sound;
  Shell& Desktop;
  Dialogs& Messages;
  std::string ProgramFolder;

  bool ShuttingDown = false;     // set once, when the user or the system asks to quit; every wait ends on it
  bool FetchInProgress = false;  // while a page is being read, input that would start work is dropped
};

}  // namespace brelwin
