// Feeds cut anywhere: the spots are the first ones of the whole feed.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "feed_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::size_t cut = size < 2 ? 0 : data[0] + 256U * data[1];
  if (!brelwin::test::CutFeedGivesFirstSpots(text.substr(std::min<std::size_t>(size, 2)), cut)) std::abort();
  return 0;
}
