// Warns, while the user types, of text that the settings file would not give back.
#pragma once

#include <vector>

#include "base/observable.h"
#include "controls/screen.h"

namespace brelwin {

// Keeps the warning of every text box up to date for as long as it lives: a text of more than 127 characters
// is cut when it is loaded.
class BoxWarnings {
 public:
  explicit BoxWarnings(Screen& screen);

 private:
  std::vector<Watch> watches_;
};

}  // namespace brelwin
