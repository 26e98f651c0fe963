// What a line buffer says of some bytes that come in pieces.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "rbn/line_buffer.h"

namespace brelwin::test {

struct HeardLines {
  std::string Lines;
  std::int64_t WholeLines = 0;
  std::int64_t DroppedLines = 0;

  bool operator==(const HeardLines&) const = default;
};

inline HeardLines Hear(const std::vector<std::string_view>& pieces, LineLimits limits = {}) {
  LineBuffer buffer(limits);
  HeardLines heard;
  for (const auto piece : pieces) {
    const auto intake = buffer.Add(piece);
    heard.WholeLines += intake.WholeLines;
    heard.DroppedLines += intake.DroppedLines;
  }
  heard.Lines = buffer.TakeLines();
  return heard;
}

// However the bytes are cut in two.
inline bool IsHeardTheSameAtEveryCut(std::string_view bytes, LineLimits limits) {
  const auto whole = Hear({bytes}, limits);
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    if (Hear({bytes.substr(0, cut), bytes.substr(cut)}, limits) != whole) return false;
  }
  return true;
}

}  // namespace brelwin::test
