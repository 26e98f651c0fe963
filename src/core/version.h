// Which version of the program this is.
#pragma once

#include <string_view>

namespace brelwin {

// The version text, such as "1.0.0".
std::string_view ProgramVersion();

}  // namespace brelwin
