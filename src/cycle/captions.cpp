#include "cycle/captions.h"

#include "core/version.h"

namespace brelwin {

std::string ProgramTitle() {
  return "Brelwin v" + std::string(ProgramVersion());
}

std::string WindowCaption(bool gatewayEnabled, bool feedGone) {
  return ProgramTitle() + " --- by Q0ZZ" + (gatewayEnabled ? " --- Gateway Mode Enabled" : "") +
         (feedGone ? " --- Sotawatch feed gone" : "");
}

}  // namespace brelwin
