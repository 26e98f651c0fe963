// What the user should know of text that the settings file would not give back: while it is typed, and
// after a file was loaded that leaves something open or was cut.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "controls/screen.h"
#include "settings/settings_table.h"

namespace brelwin {

// Keeps the warning of every text box up to date for as long as it lives: a text of more than 127 characters
// is cut when it is loaded.
class BoxWarnings {
 public:
  explicit BoxWarnings(Screen& screen);

 private:
  std::vector<Watch> watches_;
};

// What the file, which has `stored` for the setting or no such key, does to it, in a sentence; empty when
// there is nothing to tell. Told are values that were cut, and missing keys that decide what is read. The
// screen holds what was loaded.
std::string NoticeOn(const SettingRow& row, const std::optional<std::string>& stored, const Screen& screen);

}  // namespace brelwin
