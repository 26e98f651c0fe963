// Where a web address leads.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// The host of an address with or without a scheme, in lower case, without user, port and brackets. Empty when
// the address has none.
std::string HostOfAddress(std::string_view address);

// Whether the host is this machine itself, by its name or number.
bool IsThisMachine(std::string_view host);

}  // namespace brelwin
