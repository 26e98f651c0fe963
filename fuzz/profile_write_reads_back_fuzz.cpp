// A value written into any INI file reads back, and nothing else in the file is touched.
#include <cstdint>
#include <cstdlib>

#include "file_properties.h"

namespace {

// The piece up to the next byte 0xFE, which no UTF-8 text holds.
std::string_view TakePiece(std::string_view& data) {
  const auto piece = data.substr(0, data.find('\xFE'));
  data.remove_prefix(std::min(piece.size() + 1, data.size()));
  return piece;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string_view data(reinterpret_cast<const char*>(bytes), size);
  const auto section = TakePiece(data);
  const auto key = TakePiece(data);
  const auto value = TakePiece(data);
  if (!brelwin::test::BreachOfProfileWrite(std::string(data), section, key, value).empty()) std::abort();
  return 0;
}
