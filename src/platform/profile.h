// The private-profile functions: one value of one key of one section of an INI file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace brelwin {

// The program reads values into a buffer of this many characters and an end mark.
inline constexpr std::size_t LongestProfileValue = 127;

// The value of the key, at most `size` - 1 characters of it; `defaultValue` when the file, the section or the
// key is missing or the file cannot be read.
std::string GetPrivateProfileString(const Files& files, std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, std::string_view path);

// Writes the value, making the file, for its owner only, when there is none. False when it could not be
// written: the file is then as it was. A file that is there and cannot be read is not written.
bool WritePrivateProfileString(Files& files, std::string_view section, std::string_view key,
                               std::string_view value, std::string_view path);

}  // namespace brelwin
