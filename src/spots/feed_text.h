// The text of a feed's element as people read it: without markup.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

inline constexpr std::string_view CDataBegin = "<![CDATA[";
inline constexpr std::string_view CDataEnd = "]]>";

// Entities are decoded once, except in CDATA sections, whose marks are dropped. Line ends become one blank
// together with the white space around them, other control characters, decoded ones included, one blank each.
// Outer blanks are trimmed. What is no entity stays as it is.
std::string DecodeFeedText(std::string_view raw);

}  // namespace brelwin
