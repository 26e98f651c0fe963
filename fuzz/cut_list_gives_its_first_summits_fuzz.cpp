// Summit lists of any bytes, cut anywhere: the rows are the first ones of the whole list.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "places_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (size < 2) return 0;
  const std::size_t cut = data[0] + 256U * data[1];
  if (!brelwin::test::CutListGivesItsFirstSummits(text.substr(2), std::min(cut, size - 2))) std::abort();
  return 0;
}
