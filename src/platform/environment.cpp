#include "platform/environment.h"

#include <cstdlib>

namespace brelwin {

std::optional<std::string> EnvironmentVariable(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  if (value == nullptr) return {};
  return std::string(value);
}

}  // namespace brelwin
