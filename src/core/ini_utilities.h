// Typed access to one key of one section of an INI file, and the two routines beneath it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host.h"

namespace brelwin {

// The value of the key as the profile functions give it: at most 127 characters, outer blanks and one pair of
// equal quotes taken off. Empty when the path, section or key is empty or any of them is missing.
std::string ReadINIValue(Host& host, std::string_view path, std::string_view section, std::string_view key);

// Writes the value in place, or adds the key or section. An empty value keeps the key with nothing after "=".
// False when the path, section or key is empty or the file could not be written.
bool WriteINIValue(Host& host, std::string_view path, std::string_view section, std::string_view key,
                   std::string_view value);

// Whether the trimmed value is TRUE, YES, -1 or 1, in any letter case.
bool IsTrueWord(std::string_view value);

// The number that the text is as a whole, "." being the decimal point; empty when it is none.
std::optional<double> NumberOfWholeText(std::string_view text);

class clsINIUtilities {
 public:
  explicit clsINIUtilities(Host& host) : host_(host) {}

  std::string INIPath;  // the file that every operation works on

  // Readers give the empty value (empty text, 0, false) for a missing file, section or key.
  std::string ReadStringKey(std::string_view theSection, std::string_view theKey);
  // True for TRUE, YES, -1 and 1 in any letter case.
  bool ReadTrueFalseKey(std::string_view theSection, std::string_view theKey);
  // The leading number of the value, "." being the decimal point.
  double ReadNumericKey(std::string_view theSection, std::string_view theKey);
  // 1 for the words of ReadTrueFalseKey, else 0.
  std::int16_t ReadOldCheckBoxKey(std::string_view theSection, std::string_view theKey);
  std::string ReadEncryptedKey(std::string_view theSection, std::string_view theKey);

  // Writers silently write nothing when they fail. Texts are trimmed.
  void WriteStringKey(std::string_view theSection, std::string_view theKey, std::string_view theValue);
  // "True" when the flag is -1 or 1, else "False".
  void WriteTrueFalseKey(std::string_view theSection, std::string_view theKey, std::int16_t theFlag);
  // The value rounded half to even into 32 bits, as decimal text; an empty text is written as "0".
  void WriteIntegerKey(std::string_view theSection, std::string_view theKey, std::string_view theValue);
  // `fillLength` is the length up to which random characters hide the secret's own; without one it is the
  // secret's + 5, at most 40. A secret of 100 characters or more has no form and is not written.
  void WriteEncryptedKey(std::string_view theSection, std::string_view theKey, std::string_view theValue,
                         std::optional<std::size_t> fillLength = {});

 private:
  Host& host_;
};

}  // namespace brelwin
