// Base callsigns of any text: the same in any letter case.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "radio_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::CallsignIgnoresCase(text)) std::abort();
  return 0;
}
