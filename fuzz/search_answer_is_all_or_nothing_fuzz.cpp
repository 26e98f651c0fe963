// Search answers of any bytes: no spots of half an answer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "feed_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::SearchAnswerIsAllOrNothing(text)) std::abort();
  return 0;
}
