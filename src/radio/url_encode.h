// Text encoded for a form body or a query string.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// Letters and digits stay, every other character becomes "%" and its code as two upper-case hexadecimal
// digits; a blank becomes "%20". A character with a code above 255 is encoded byte by byte as UTF-8.
std::string URLEncode(std::string_view text);

}  // namespace brelwin
