// Where a file lives that the user named.
#pragma once

#include <string>
#include <string_view>

#include "platform/host.h"

namespace brelwin {

// The full name of a sound: a name without a folder stands in the program's folder, any other is used as it
// is. The name is trimmed; an empty one stays empty.
std::string FullFileName(const Host& host, std::string_view fileName);

// The full name of a log: one that begins with "/" or "\" is used as it is, any other, with folders or
// without, stands under the program's folder, wherever the program was started from. The name is trimmed; an
// empty one stays empty.
std::string FullLogName(const Host& host, std::string_view fileName);

}  // namespace brelwin
