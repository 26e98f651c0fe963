// Character references of HTML, named and numeric: "&amp;", "&eacute;", "&#233;", "&#xE9;".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

struct Entity {
  char32_t CodePoint = 0;
  std::size_t Length = 0;  // in the text, with "&" and ";"
};

// The entity at the start of the text; empty when none begins there. Names are those of the characters from
// U+00A0 to U+00FF and of common punctuation. A number may be one that is no character.
std::optional<Entity> EntityAt(std::string_view text);

// The text with its entities decoded, once. As HTML has it, numbers from 128 to 159 mean Windows-1252,
// those that are no character give U+FFFD. What is no entity stays as it is.
std::string DecodeEntities(std::string_view text);

}  // namespace brelwin
