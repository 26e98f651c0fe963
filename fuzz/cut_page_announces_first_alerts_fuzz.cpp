// Alerts pages cut anywhere: the alerts are the first ones of the whole page.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "alert_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view page(reinterpret_cast<const char*>(data), size);
  const std::size_t cut = size < 2 ? 0 : data[0] + 256U * data[1];
  if (!brelwin::test::CutPageAnnouncesFirstAlerts(page.substr(size < 2 ? size : 2), cut)) std::abort();
  return 0;
}
