// Web addresses: where they lead, and text encoded for a form body or a query string.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// ASCII letters and digits stay; every other character becomes "%" and its ANSI code (Windows-1252) as two
// upper-case hexadecimal digits, so that a blank becomes "%20" and "é" becomes "%E9". A character without
// such a code becomes a question mark's. Invalid UTF-8 is taken as Windows-1252. Never fails.
std::string URLEncode(std::string_view text);

// The host of an address with or without a scheme, in lower case, without user, port and brackets. Empty when
// the address has none.
std::string HostOfAddress(std::string_view address);

// Whether the host is this machine itself, by its name or number.
bool IsThisMachine(std::string_view host);

}  // namespace brelwin
