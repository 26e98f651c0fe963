// However a stream is cut on its way, the lines that wait are the same, and so is what is told of the limits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/encoding.h"
#include "rbn/line_buffer.h"

namespace {

struct Heard {
  std::string Lines;
  std::int64_t WholeLines = 0;
  std::int64_t DroppedLines = 0;
  int Overflows = 0;

  bool operator==(const Heard&) const = default;
};

void Add(brelwin::LineBuffer& buffer, std::string_view bytes, Heard& heard) {
  const auto intake = buffer.Add(bytes);
  heard.WholeLines += intake.WholeLines;
  heard.DroppedLines += intake.DroppedLines;
  heard.Overflows += intake.Overflowed ? 1 : 0;
}

Heard Hear(std::string_view first, std::string_view second) {
  brelwin::LineBuffer buffer({.LongestLine = 40, .MostWaiting = 200});
  Heard heard;
  Add(buffer, first, heard);
  Add(buffer, second, heard);
  heard.Lines = buffer.TakeLines();
  return heard;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto whole = Hear(bytes, {});
  if (!brelwin::IsUtf8(whole.Lines)) std::abort();
  for (std::size_t cut = 0; cut <= size; ++cut) {
    if (Hear(bytes.substr(0, cut), bytes.substr(cut)) != whole) std::abort();
  }
  return 0;
}
