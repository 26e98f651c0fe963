// The program's folder for a rehearsal: settings and lists, drawn from the seed.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace rehearsal {

inline constexpr auto SiteAddress = "http://practice.test";
inline constexpr auto Password = "practice";

// Names and texts of its files. `crowd` is how many activators the practice network has beside the usual
// ones; by the service the spots come from the JSON service.
std::map<std::string, std::string> FolderOf(std::uint64_t seed, std::size_t crowd, bool isByService);

}  // namespace rehearsal
