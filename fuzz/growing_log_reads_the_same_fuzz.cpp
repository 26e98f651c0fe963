// Logs of any bytes and either kind, read while they grow.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "needs_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (size < 3) return 0;
  const std::size_t cut = data[0] + 256U * data[1];
  const std::string log = (data[2] % 2 == 0 ? "V2," : "") + std::string(text.substr(3));
  if (!brelwin::test::GrowingLogReadsTheSame(log, std::min(cut, log.size()))) std::abort();
  return 0;
}
