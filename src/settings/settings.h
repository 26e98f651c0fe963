// Loading the settings file into the controls and saving them back, without destroying what it cannot
// represent.
#pragma once

#include <memory>
#include <string_view>

#include "controls/screen.h"
#include "platform/host.h"
#include "settings/configuration.h"

namespace brelwin {

// The settings of one run: what stood in the file when it was loaded is remembered for the save.
class Settings {
 public:
  Settings(Host& host, Screen& screen, Configuration& configuration);
  ~Settings();

  // Fills the controls and the configuration from the file. Without a file they keep their design values,
  // which are set first in any case. A password from `passwordFromEnvironment`, when not empty, fills the
  // password box after the load and is never written to the file unless the user changes it.
  void LoadSettings(std::string_view path, std::string_view passwordFromEnvironment);

  // Makes the settings file when there is none. True when others may write to it: not when it was there and
  // could not be read.
  bool PrepareFile();

  // Writes every setting to the file that was loaded. What the user did not touch and what the file says
  // differently since the load, or holds in a form that a box cannot represent, is left alone; each such key
  // is logged. False when the file could not be written.
  bool SaveSettings();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace brelwin
