// Words for the operating system's error numbers, the same under every locale.
#pragma once

#include <string>

namespace brelwin {

// Such as "No space left on device"; never empty.
std::string SystemErrorText(int errorNumber);

}  // namespace brelwin
