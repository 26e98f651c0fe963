// Lists of the JSON service of any bytes, cut anywhere.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "feed_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (size > 0 && !brelwin::test::CutListGivesItsFirstRows(text.substr(1), data[0])) std::abort();
  return 0;
}
