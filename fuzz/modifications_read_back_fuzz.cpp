// Modifications files of any bytes: cleaned once, they read back the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "alert_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::ModificationsReadBack(bytes)) std::abort();
  return 0;
}
