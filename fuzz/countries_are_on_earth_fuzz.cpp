// Country lists of any bytes, asked for any callsign: none is placed off the earth.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "places_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto call = text.substr(0, text.find('\n'));
  const auto list = text.substr(call.size());
  if (!brelwin::test::CountriesAreOnEarth(list, call)) std::abort();
  return 0;
}
