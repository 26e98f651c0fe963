// The whole program behind one door: what a skin needs to start it, show it and end it.
#pragma once

#include <memory>
#include <string_view>

#include "around/surroundings.h"
#include "board/board_keeper.h"
#include "controls/screen.h"
#include "platform/host.h"

namespace brelwin {

struct MainWindow;

class Program {
 public:
  explicit Program(Host& host);
  ~Program();

  // What is on the screen. A skin binds it before Start.
  Screen& Controls();

  // The board: one row per activation. It lives as long as the program.
  BoardKeeper& Activations();

  // What is known around the rows of the board: places, summits and what the operator needs. The same.
  Surroundings& Around();

  // Start-up, to be called once, from the event queue or before it runs. `commandLine` is everything after
  // the program's name. A non-empty password fills the password box and never reaches the settings file.
  // After Quit there is no start any more.
  void Start(std::string_view commandLine, std::string_view passwordFromEnvironment);

  // The user or the system asks to quit. Every wait ends; once what is running has returned, the settings are
  // saved and EventQueue::Quit is called. Calls after the first do nothing.
  void Quit();

 private:
  std::unique_ptr<MainWindow> window_;
};

}  // namespace brelwin
