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

// What the desktop is asked to open for an address of the list: "https://" before one without a scheme that
// looks like a host ("www.example.org/page"), unless there is such a file; the address as it is otherwise.
std::string AddressToOpen(const Host& host, std::string_view address);

}  // namespace brelwin
