// Finding one's way in the markup of a web page. Everything walks forward over views of the page and looks at
// no byte twice for the same marker, so that a hostile page costs no more than an honest one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

// The text between the next `begin` and the `end` after it; `rest` goes on behind that end. Empty, with
// `rest` unchanged, when either is missing.
std::optional<std::string_view> TakeBetween(std::string_view& rest, std::string_view begin,
                                            std::string_view end);

// The content of the next table cell; `rest` goes on behind its "</td>". Empty when there is no whole one.
std::optional<std::string_view> TakeCell(std::string_view& rest);

// The next word, without the blanks around it; empty when there is none.
std::string_view TakeWord(std::string_view& rest);

// The text up to the next delimiter, or all of it; `rest` goes on behind the delimiter.
std::string_view TakePart(std::string_view& rest, char delimiter);

// The text with each CR, LF and tab turned into a blank.
std::string WithBlanks(std::string text);

// The text as people read it, fit for a line of a file: entities decoded once, then line ends, tabs and
// no-break spaces turned into blanks, then trimmed.
std::string PlainText(std::string_view text);

}  // namespace brelwin
