// On what system the program runs, for support.
#pragma once

#include <string>

namespace brelwin {

struct SystemInformation {
  std::string Type;     // such as "Linux"
  std::string Version;  // such as "6.1.0-13-amd64"
};

// Texts that the system does not tell are empty.
SystemInformation ReadSystemInformation();

}  // namespace brelwin
