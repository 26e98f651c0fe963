// The program's titles.
#pragma once

#include <string>

namespace brelwin {

// Name and version.
std::string ProgramTitle();

// The window's caption; it says so while the gateway is on.
std::string WindowCaption(bool gatewayEnabled);

}  // namespace brelwin
