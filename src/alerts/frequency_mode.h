// One pair of a frequency and a mode. Alerts keep theirs as the one announced text; the record is for those
// who take that text apart.
#pragma once

#include <cstdint>
#include <string>

namespace brelwin {

struct FrequencyMode {
  float BandInMhz = 0;
  float FrequencyInMhz = 0;
  std::string FrequencyString;
  std::int16_t mode = 0;
};

}  // namespace brelwin
