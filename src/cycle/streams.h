// The streams of the Reverse Beacon Network that are listened to.
#pragma once

#include <vector>

#include "cycle/main_window.h"

namespace brelwin {

// The first one, and the second one where there is to be one.
inline std::vector<RBNConnection*> StreamsOf(MainWindow& window) {
  if (!window.RBN2.IsConfigured()) return {&window.RBN};
  return {&window.RBN, &window.RBN2};
}

}  // namespace brelwin
