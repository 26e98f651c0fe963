// Loading the settings file into the controls and saving them back, without destroying what it cannot
// represent.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

  // What the user should know of the file that was loaded, a sentence each: keys that are missing and decide
  // what is read, and values that were cut. A sentence goes for good when the user changes the setting or a
  // save writes the key.
  std::vector<std::string> Notices();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace brelwin
