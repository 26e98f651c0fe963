#include "spots/spot.h"

namespace brelwin {

void Spot::CopyMyPropertiesFromThisSpot(const struct Spot* source) {
  if (source != nullptr) *this = *source;
}

}  // namespace brelwin
