// Spots of any text: the form keeps its nine fields.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "form_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::FormNeverGainsAField(bytes)) std::abort();
  return 0;
}
