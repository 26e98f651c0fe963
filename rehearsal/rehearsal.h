// One day of the whole program against the practice network, in one process.
#pragma once

#include <cstdint>
#include <filesystem>

namespace rehearsal {

struct Plan {
  std::uint64_t Seed = 1;
  double Hours = 24;
  std::size_t Crowd = 300;
  int LinesAnHour = 2000;
  bool HasFaults = true;
  bool IsByService = false;  // spots and announcements come from the JSON service
};

// Leaves the ledger, the settings and lists that the program began with, and its event log in the folder,
// which is emptied first.
void Rehearse(const Plan& plan, const std::filesystem::path& folder);

}  // namespace rehearsal
