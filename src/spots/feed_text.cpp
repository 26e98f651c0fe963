#include "spots/feed_text.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/entities.h"
#include "base/line_text.h"

namespace brelwin {
namespace {

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
    AppendCodePoint(text, IsControlCharacter(entity->CodePoint) ? U' ' : entity->CodePoint);
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
