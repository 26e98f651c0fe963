// On what system the program runs, and the environment variables it was started with.
#pragma once

#include <optional>
#include <string>

namespace brelwin {

// The value of the variable; empty when it is not set. A variable set to nothing gives an empty text.
std::optional<std::string> EnvironmentVariable(const std::string& name);

struct SystemInformation {
  std::string Type;     // such as "Linux"
  std::string Version;  // such as "6.1.0-13-amd64"
};

// Texts that the system does not tell are empty.
SystemInformation ReadSystemInformation();

}  // namespace brelwin
