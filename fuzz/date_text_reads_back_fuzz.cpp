// Dates in any text: what is read reads back from what is written.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "radio_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::DateTextReadsBack(text)) std::abort();
  return 0;
}
