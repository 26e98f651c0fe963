#include "platform/system_information.h"

#include <sys/utsname.h>

#include <cstdlib>

namespace brelwin {

std::optional<std::string> EnvironmentVariable(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  if (value == nullptr) return {};
  return std::string(value);
}

SystemInformation ReadSystemInformation() {
  utsname names{};
  if (::uname(&names) != 0) return {};
  return {names.sysname, names.release};
}

}  // namespace brelwin
