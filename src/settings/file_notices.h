// What the user should know of a settings file that was loaded: what it leaves open, and what of it was cut.
#pragma once

#include <optional>
#include <string>

#include "settings/settings_table.h"

namespace brelwin {

// What the file, which has `stored` for the setting or no such key, does to it, in a sentence; empty when
// there is nothing to tell. Told are values that were cut, and missing keys that decide what is read. The
// screen holds what was loaded.
std::string NoticeOn(const SettingRow& row, const std::optional<std::string>& stored, const Screen& screen);

}  // namespace brelwin
