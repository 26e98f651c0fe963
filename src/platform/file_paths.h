// From a path as the program and its users write it to the file that it means on this system.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// The path with "/" between folders. A folder or file that is not there under its exact name, but under one
// that differs in ASCII letter case only, is meant; of several such names the first in byte order. Parts that
// do not exist stay as they were written.
std::string ResolvePath(std::string_view path);

// Where a symbolic link leads, link after link; the path itself when it is none. The last target need not
// exist.
std::string FollowLinks(std::string path);

}  // namespace brelwin
