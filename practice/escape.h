// Putting plain text into markup and JSON, and taking it out of forms.
#pragma once

#include <string>
#include <string_view>

#include "scripted_spot.h"

namespace practice {

// Text for an XML or HTML element, in the given way of writing.
std::string MarkupText(std::string_view text, Markup writing);

// A JSON string in quotes, ASCII only: other characters as \uXXXX. `text` is UTF-8.
std::string JsonString(std::string_view text);

bool IsUtf8(std::string_view text);

// Every byte as the character of its number, in UTF-8.
std::string ByteCharacters(std::string_view bytes);

// "a%20b" and "a+b" of a form or an address as "a b".
std::string PercentDecoded(std::string_view text);

}  // namespace practice
