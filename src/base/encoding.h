// Text is UTF-8 everywhere inside the program. Here bytes from outside become such text, and characters
// (code points) are counted and cut.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsUtf8(std::string_view bytes);

// One byte of Windows-1252 as a code point. The five unassigned bytes give the control character of their
// value.
char32_t CodePointOfWindows1252(unsigned char byte);

// The byte that Windows-1252 has for the code point, the unassigned ones as above; empty when it has none.
std::optional<unsigned char> CodeInWindows1252(char32_t codePoint);

// Appends the code point as UTF-8; a value that is no code point becomes U+FFFD.
void AppendCodePoint(std::string& text, char32_t codePoint);

// Takes the first code point off `text` (which must not be empty). A malformed byte is taken alone and read
// as Windows-1252, so the function always moves on.
char32_t TakeCodePoint(std::string_view& text);

// The bytes as UTF-8, decided line by line: a line that is not valid UTF-8 is taken as Windows-1252. A UTF-8
// byte-order mark at the start is dropped. Line ends stay as they are.
std::string TextFromBytes(std::string_view bytes);

// Number of characters (code points) of UTF-8 text.
std::size_t CharacterCount(std::string_view text);

// The first `count` characters of the text; the whole text when it is not longer. Points into `text`.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace brelwin
