// The text of an INI file, with the behaviour that the private-profile functions are documented to have. All
// bytes that a write does not concern stay as they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

}  // namespace brelwin
