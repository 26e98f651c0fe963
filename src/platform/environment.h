// The process's environment variables.
#pragma once

#include <optional>
#include <string>

namespace brelwin {

// The value of the variable; empty when it is not set. A variable set to nothing gives an empty text.
std::optional<std::string> EnvironmentVariable(const std::string& name);

}  // namespace brelwin
