#include "platform/system_information.h"

#include <sys/utsname.h>

namespace brelwin {

SystemInformation ReadSystemInformation() {
  utsname names{};
  if (::uname(&names) != 0) return {};
  return {names.sysname, names.release};
}

}  // namespace brelwin
