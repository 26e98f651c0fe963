// The program's titles.
#pragma once

#include <string>

namespace brelwin {

// Name and version.
std::string ProgramTitle();

// The window's caption; it says so while the gateway is on, and while the service is gone from which the
// spots or alerts are to come.
std::string WindowCaption(bool gatewayEnabled, bool feedGone);

}  // namespace brelwin
