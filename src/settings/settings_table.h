// Every setting in one table. It drives the load, the save, the design values and the fallbacks; the user
// guide is checked against it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "controls/screen.h"
#include "platform/host.h"
#include "settings/configuration.h"

namespace brelwin {

// Where a setting lives while the program runs: a control of the screen, a field of the configuration, or a
// fact about this installation that is written for support.
using SettingTarget =
    std::variant<TextBox& (*)(Screen&), CheckBox& (*)(Screen&), OptionGroup& (*)(Screen&),
                 KeptText& (*)(Screen&), std::string& (*)(Configuration&), std::int32_t& (*)(Configuration&),
                 bool& (*)(Configuration&), std::string (*)(const Host&)>;

enum class SettingUse : std::uint8_t {
  LoadedAndSaved,
  Scrambled,   // loaded and saved; hidden from a passing glance in the file
  LoadedOnly,  // edited by hand in the file
  SavedOnly,
};

// When the fallback takes the place of what the file says. A missing key is an empty value.
enum class FallbackWhen : std::uint8_t { Never, Empty, Zero, BelowOne, NotANumber };

struct SettingRow {
  std::string_view Section;
  std::string_view Key;
  SettingTarget Target;
  std::string_view DesignValue = {};  // the value while there is no file, before the fallback
  SettingUse Use = SettingUse::LoadedAndSaved;
  FallbackWhen When = FallbackWhen::Never;
  std::string_view Fallback = {};
};

// The rows in the order in which they are loaded, saved, and written into a new file.
std::span<const SettingRow> SettingsTable();

}  // namespace brelwin
