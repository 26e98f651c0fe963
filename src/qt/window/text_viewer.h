// A plain window with a text file in it, for desktops without a text viewer.
#pragma once

#include <string_view>

#include "platform/files.h"

namespace brelwin {

// Of a very long file the end is shown. False when the file cannot be read.
bool ShowTextFile(const Files& files, std::string_view path);

}  // namespace brelwin
