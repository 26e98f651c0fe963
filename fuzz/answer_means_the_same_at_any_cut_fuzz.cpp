// Answers of any bytes: their meaning does not depend on how they arrive.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "form_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (!brelwin::test::AnswerMeansTheSameAtAnyCut(bytes)) std::abort();
  return 0;
}
