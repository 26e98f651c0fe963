#include "spots/json_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace brelwin {
namespace {

constexpr std::size_t EscapeLength = 6;  // of "\uXXXX"

// The UTF-16 unit of the escape at the start of the text.
std::optional<unsigned> UnitOfEscape(std::string_view text) {
  if (text.size() < EscapeLength || !text.starts_with("\\u")) return {};
  unsigned unit = 0;
  const auto* end = text.data() + EscapeLength;
  const auto result = std::from_chars(text.data() + 2, end, unit, 16);
  if (result.ptr != end) return {};
  return unit;
}

bool IsHighSurrogate(std::optional<unsigned> unit) {
  return unit && *unit >= 0xD800 && *unit < 0xDC00;
}
bool IsLowSurrogate(std::optional<unsigned> unit) {
  return unit && *unit >= 0xDC00 && *unit < 0xE000;
}

// Copies the escape at the start of the text, as a pair where it is one, and returns how long it was.
std::size_t CopyEscape(std::string& mended, std::string_view text) {
  const auto unit = UnitOfEscape(text);
  std::size_t length = unit ? EscapeLength : std::min<std::size_t>(text.size(), 2);
  if (IsHighSurrogate(unit) && IsLowSurrogate(UnitOfEscape(text.substr(EscapeLength)))) {
    length = 2 * EscapeLength;
  } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
    mended.append("\\uFFFD");
    return length;
  }
  mended.append(text.substr(0, length));
  return length;
}

}  // namespace

std::string MendSurrogates(std::string_view json) {
  std::string mended;
  mended.reserve(json.size());
  while (!json.empty()) {
    const auto plain = std::min(json.find('\\'), json.size());
    mended.append(json.substr(0, plain));
    json.remove_prefix(plain);
    if (!json.empty()) json.remove_prefix(CopyEscape(mended, json));
  }
  return mended;
}

}  // namespace brelwin
