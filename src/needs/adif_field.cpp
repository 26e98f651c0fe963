#include "needs/adif_field.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/line_text.h"
#include "base/text.h"
#include "radio/day_text.h"

namespace brelwin {
namespace {

// No value of a log is longer; a length beyond is a slip of the writer.
constexpr int LongestValue = 100000;

// The longest tag there is names a field, a length and a type.
constexpr std::size_t LongestTag = 100;

struct Tag {
  std::size_t Begin = 0;  // of "<"
  std::size_t End = 0;    // behind ">"
  std::string_view Text;
};

bool BeginsName(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Text between fields may hold a "<" of its own, which no name follows.
std::optional<Tag> NextTag(std::string_view bytes, std::size_t from) {
  for (auto begin = bytes.find('<', from); begin != std::string_view::npos;
       begin = bytes.find('<', begin + 1)) {
    if (begin + 1 < bytes.size() && !BeginsName(bytes[begin + 1])) continue;
    const auto end = bytes.substr(begin, LongestTag).find('>');
    if (end != std::string_view::npos) return Tag{begin, begin + end + 1, bytes.substr(begin + 1, end - 1)};
    if (bytes.size() - begin < LongestTag) return std::nullopt;
  }
  return std::nullopt;
}

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

bool MayFollowValue(std::string_view rest) {
  return rest.empty() || std::string_view("< \t\r\n").find(rest.front()) != std::string_view::npos;
}

std::size_t BytesOfCharacters(std::string_view text, std::size_t count) {
  auto rest = text;
  for (; count > 0 && !rest.empty(); --count) TakeCodePoint(rest);
  return text.size() - rest.size();
}

// Where the mark of the record's end begins in the value; npos when it is not in there.
std::size_t EndOfRecordIn(std::string_view value) {
  auto at = value.find('<');
  while (at != std::string_view::npos && !StartsIgnoringCase(value.substr(at), "<EOR>"))
    at = value.find('<', at + 1);
  return at;
}

// Bytes as the format has it, unless characters fit and bytes do not.
std::size_t ValueSize(std::string_view rest, std::size_t length) {
  if (IsPlainText(rest.substr(0, length)) || MayFollowValue(rest.substr(std::min(length, rest.size()))))
    return length;
  const auto size = BytesOfCharacters(rest, length);
  const bool fits =
      MayFollowValue(rest.substr(size)) && EndOfRecordIn(rest.substr(0, size)) == std::string_view::npos;
  return fits ? size : length;
}

std::optional<AdifField> ReadValue(std::string_view bytes, const Tag& tag, std::size_t length,
                                   std::string_view name) {
  const auto rest = bytes.substr(tag.End);
  const auto size = ValueSize(rest, length);
  const auto end = EndOfRecordIn(rest.substr(0, size));
  if (end != std::string_view::npos) return AdifField{AdifTag::Broken, name, {}, tag.End + end};
  if (size > rest.size()) return std::nullopt;
  return AdifField{AdifTag::Field, name, Trim(rest.substr(0, size)), tag.End + size};
}

}  // namespace

std::optional<AdifField> NextAdifField(std::string_view bytes, std::size_t from) {
  const auto tag = NextTag(bytes, from);
  if (!tag) return std::nullopt;
  if (EqualsIgnoringCase(tag->Text, "EOH")) return AdifField{AdifTag::EndOfHeader, {}, {}, tag->End};
  if (EqualsIgnoringCase(tag->Text, "EOR")) return AdifField{AdifTag::EndOfRecord, {}, {}, tag->End};
  const auto parts = Split(tag->Text, ":");
  const auto length = parts.size() < 2 ? std::nullopt : ReadDigits(Trim(parts[1]));
  if (!length || *length > LongestValue) return AdifField{AdifTag::Broken, parts.front(), {}, tag->End};
  return ReadValue(bytes, *tag, static_cast<std::size_t>(*length), Trim(parts.front()));
}

}  // namespace brelwin
