// However a stream is cut on its way, the lines that wait are the same, and so is what is told of the limits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/encoding.h"
#include "heard_lines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const brelwin::LineLimits limits{.LongestLine = 40};
  if (!brelwin::IsUtf8(brelwin::test::Hear({bytes}, limits).Lines)) std::abort();
  if (!brelwin::test::IsHeardTheSameAtEveryCut(bytes, limits)) std::abort();
  return 0;
}
