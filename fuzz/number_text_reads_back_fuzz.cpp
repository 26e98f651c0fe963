// Numbers in any text and any single-precision number: what is written reads back.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "radio_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::NumberIsReadFromAnyText(text)) std::abort();
  std::uint32_t bits = 0;
  std::memcpy(&bits, data, std::min(size, sizeof bits));
  if (!brelwin::test::NumberTextReadsBack(bits)) std::abort();
  return 0;
}
