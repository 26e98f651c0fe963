// Outside text as part of one line of a list or log: cut and padded to columns, and never breaking the line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brelwin {

// Control characters of ASCII and Latin-1; and those of ASCII alone, for bytes of UTF-8.
bool IsControlCharacter(char32_t codePoint);
constexpr bool IsControlByte(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

// Whether the text is printable ASCII throughout: then characters are bytes, and none needs a look of its
// own.
bool IsPlainText(std::string_view text);

// Appends the first `shown` characters of the text, padded on the right with blanks to `width` characters,
// which is not less. Control characters, and the line ends of Unicode, become blanks.
void AppendPadded(std::string& line, std::string_view text, std::size_t shown, std::size_t width);

// Appends the first `width` characters of the text, padded on the left with blanks.
void AppendAlignedRight(std::string& line, std::string_view text, std::size_t width);

// Appends the whole text with every control character turned into a blank, CR LF into one.
void AppendPrintable(std::string& line, std::string_view text);

// Appends the whole text as it is, but with every line end (CR, LF or both) turned into a blank.
void AppendWithoutLineEnds(std::string& line, std::string_view text);

}  // namespace brelwin
