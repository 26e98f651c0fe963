// Text encoded for a form body or a query string.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// ASCII letters and digits stay; every other character becomes "%" and its ANSI code (Windows-1252) as two
// upper-case hexadecimal digits, so that a blank becomes "%20" and "é" becomes "%E9". A character without
// such a code becomes a question mark's. Invalid UTF-8 is taken as Windows-1252. Never fails.
std::string URLEncode(std::string_view text);

}  // namespace brelwin
