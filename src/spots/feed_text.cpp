#include "spots/feed_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "base/encoding.h"
#include "base/text.h"

namespace brelwin {
namespace {

constexpr std::size_t LongestEntity = 12;

struct Entity {
  char32_t CodePoint = 0;
  std::size_t Length = 0;  // in the text, with "&" and ";"
};

struct NamedEntity {
  std::string_view Name;
  char32_t CodePoint;
};

constexpr std::array<NamedEntity, 5> NamedEntities = {
    {{"amp", U'&'}, {"lt", U'<'}, {"gt", U'>'}, {"quot", U'"'}, {"apos", U'\''}}};

bool IsControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

bool IsControlByte(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::optional<char32_t> CodePointOfNumber(std::string_view number) {
  const bool hexadecimal = number.starts_with('x') || number.starts_with('X');
  if (hexadecimal) number.remove_prefix(1);
  std::uint32_t value = 0;
  const auto end = number.data() + number.size();
  const auto result = std::from_chars(number.data(), end, value, hexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end) return {};
  return static_cast<char32_t>(value);
}

std::optional<char32_t> CodePointOfName(std::string_view name) {
  if (name.starts_with('#')) return CodePointOfNumber(name.substr(1));
  for (const auto& entity : NamedEntities) {
    if (name == entity.Name) return entity.CodePoint;
  }
  return {};
}

// The entity at the start of the text, which begins with "&".
std::optional<Entity> EntityAt(std::string_view text) {
  const auto semicolon = text.substr(0, LongestEntity).find(';');
  if (semicolon == std::string_view::npos) return {};
  const auto codePoint = CodePointOfName(text.substr(1, semicolon - 1));
  if (!codePoint) return {};
  return Entity{*codePoint, semicolon + 1};
}

bool IsWhiteSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Takes the white space from a line end on; what stood before it is in the text already.
void TakeLineEnd(std::string& text, std::string_view& rest) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  text.push_back(' ');
  rest.remove_prefix(
      static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsWhiteSpace) - rest.begin()));
}

void TakeSpecial(std::string& text, std::string_view& rest) {
  const char c = rest.front();
  if (c == '\n' || c == '\r') return TakeLineEnd(text, rest);
  const auto entity = c == '&' ? EntityAt(rest) : std::nullopt;
  if (entity) {
    AppendCodePoint(text, IsControl(entity->CodePoint) ? U' ' : entity->CodePoint);
  } else {
    text.push_back(c == '&' ? c : ' ');
  }
  rest.remove_prefix(entity ? entity->Length : 1);
}

void AppendDecoded(std::string& text, std::string_view rest, bool withEntities) {
  const auto isSpecial = [withEntities](char c) { return IsControlByte(c) || (withEntities && c == '&'); };
  while (!rest.empty()) {
    const auto special = std::find_if(rest.begin(), rest.end(), isSpecial);
    const auto plain = static_cast<std::size_t>(special - rest.begin());
    text.append(rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (!rest.empty()) TakeSpecial(text, rest);
  }
}

}  // namespace

std::string DecodeFeedText(std::string_view raw) {
  std::string text;
  text.reserve(raw.size());
  while (!raw.empty()) {
    const auto begin = std::min(raw.find(CDataBegin), raw.size());
    AppendDecoded(text, raw.substr(0, begin), true);
    raw.remove_prefix(std::min(begin + CDataBegin.size(), raw.size()));
    const auto end = std::min(raw.find(CDataEnd), raw.size());
    AppendDecoded(text, raw.substr(0, end), false);
    raw.remove_prefix(std::min(end + CDataEnd.size(), raw.size()));
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text.erase(0, text.find_first_not_of(' '));
  return text;
}

}  // namespace brelwin
