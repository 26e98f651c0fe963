// One field of a log in the amateur data interchange format.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

enum class AdifTag : std::uint8_t { Field, EndOfHeader, EndOfRecord, Broken };

struct AdifField {
  AdifTag Tag = AdifTag::Field;
  std::string_view Name;     // as written; EqualsIgnoringCase compares it
  std::string_view Value;    // trimmed
  std::size_t NextByte = 0;  // where reading goes on
};

// The first field at or behind the byte; empty when there is none, or when it is not whole. Broken is a field
// whose length is no number, or whose value would swallow the end of its record.
std::optional<AdifField> NextAdifField(std::string_view bytes, std::size_t from);

}  // namespace brelwin
