// The user's list of websites.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"

namespace brelwin {

struct Website {
  std::string Name;
  std::string Address;
};

// The websites of the file's sections "General" and "MySites", in the file's order: each line holds a name,
// "=" and an address. Empty when there is no such file.
std::vector<Website> ReadWebsites(Host& host, std::string_view path);

}  // namespace brelwin
