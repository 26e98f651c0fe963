// One setting between the text that the file has for it and the control or field that holds it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "settings/settings_table.h"

namespace brelwin {

// What the targets of the settings table are looked up in.
struct SettingHolders {
  const Host& World;
  Screen& Controls;
  Configuration& Config;
};

// Puts the text, as the file has it, into the setting's target; the row's fallback takes its place where the
// row says so. A number that no option button stands for chooses the first one.
void PutSetting(const SettingRow& row, SettingHolders holders, std::string_view stored);

// What the target holds, as text and unscrambled: flags are "1" or "0".
std::string SettingText(const SettingRow& row, SettingHolders holders);

// The text as it is to be stored; empty when a scrambled one would not come back from the file.
std::optional<std::string> StoredForm(const SettingRow& row, std::string_view text);

// The characters of a value that are used. What the window keeps for itself, and the paths of logs, may be
// longer than what the profile functions give.
std::size_t LongestValue(const SettingRow& row);

// Why what the file says cannot be seen on the screen, so that saving what is seen there would destroy it;
// empty when it can be seen.
std::string_view ReasonNotShown(const SettingRow& row, SettingHolders holders, std::string_view stored);

// Whether the setting tells about this installation; such rows are written whatever the file says.
bool IsFact(const SettingRow& row);

}  // namespace brelwin
