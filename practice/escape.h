// Putting plain text into markup, JSON and one-line records.
#pragma once

#include <string>
#include <string_view>

#include "scripted_spot.h"

namespace practice {

// Text for an XML or HTML element, in the given way of writing.
std::string MarkupText(std::string_view text, Markup writing);

// A JSON string in quotes, ASCII only: other characters as \uXXXX. `text` is UTF-8.
std::string JsonString(std::string_view text);

// One line of printable text: control characters become \xNN.
std::string OneLine(std::string_view text);

}  // namespace practice
