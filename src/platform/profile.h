// INI files: the private-profile functions, and the text of a file with the behaviour that they are
// documented to have. All bytes that a write does not concern stay as they are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace brelwin {

// The value of the key, as UTF-8: of the first such key in the first such section, whatever the letter case
// of the names. Outer blanks and tabs are taken off, and then one pair of equal quotes (' or "). Only a line
// that begins with ";" is a comment. A line that is not UTF-8 is Windows-1252. Empty when there is no such
// key.
std::optional<std::string> ReadProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key);

struct ProfileEntry {
  std::string Key;
  std::string Value;
};

// The keys of the first such section and their values, in the order of the text.
std::vector<ProfileEntry> ReadProfileSection(std::string_view text, std::string_view section);

// Makes the key read as `value`: the first such key in the first such section is replaced where it stands;
// else the key is added after the last line of that section that is not blank; else the section is added at
// the end of the text. A key that reads so already is left as it is written. Line ends are those of the
// text, CR LF in an empty one. In the value, line ends become blanks and a NUL ends it; a value that would
// lose its own outer quotes or tabs is put into quotes. Outer blanks of a value do not survive. False, with
// nothing changed, for a name that could not be found again.
bool WriteProfileValue(std::string& text, std::string_view section, std::string_view key,
                       std::string_view value);

// A section: its name, and its lines from "[name]" up to the next section.
struct ProfileSection {
  std::string_view Name;
  std::string_view Text;
};

// The sections in their order, also those whose name came before. They point into `text`.
std::vector<ProfileSection> SplitProfile(std::string_view text);

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
