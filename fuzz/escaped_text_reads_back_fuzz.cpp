// Escaped text of any characters: what is decoded is what was escaped.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "feed_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::EscapedTextReadsBack(text)) std::abort();
  return 0;
}
