// Whether a comment says that the station has left the air.
#pragma once

#include <string_view>

namespace brelwin {

// True for the word "QRT" by itself, in any letter case, unless the words around it put it off or deny it:
// "QRT soon", "QRT in 5", "not QRT", "QRT?".
bool SaysQRT(std::string_view comment);

}  // namespace brelwin
