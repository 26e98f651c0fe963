#include "core/version.h"

namespace brelwin {

std::string_view ProgramVersion() {
  return BRELWIN_VERSION;  // the build's own, of the project in CMakeLists.txt
}

}  // namespace brelwin
