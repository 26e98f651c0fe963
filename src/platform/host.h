// The outside world in one hand: the ports, where the program lives, and what it is doing. It has no logic.
#pragma once

#include <string>

#include "platform/activation_store.h"
#include "platform/activities.h"
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
  ActivationStore& Store;
  std::string ProgramFolder;

  bool ShuttingDown = false;  // set once, when the user or the system asks to quit; every wait ends on it
  Activities Going{};
};

}  // namespace brelwin
