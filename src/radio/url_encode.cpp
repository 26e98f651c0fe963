#include "radio/url_encode.h"

#include "base/encoding.h"

namespace brelwin {
namespace {

bool IsKept(char32_t codePoint) {
  return (codePoint >= U'A' && codePoint <= U'Z') || (codePoint >= U'a' && codePoint <= U'z') ||
         (codePoint >= U'0' && codePoint <= U'9');
}

void AppendCode(std::string& encoded, unsigned code) {
  constexpr std::string_view Hexadecimal = "0123456789ABCDEF";
  encoded.append({'%', Hexadecimal[code / 16], Hexadecimal[code % 16]});
}

}  // namespace

std::string URLEncode(std::string_view text) {
  std::string encoded;
  while (!text.empty()) {
    const auto character = text;
    const auto codePoint = TakeCodePoint(text);
    if (IsKept(codePoint)) {
      encoded.push_back(character[0]);
    } else {
      AppendCode(encoded, CodeInWindows1252(codePoint).value_or('?'));
    }
  }
  return encoded;
}

}  // namespace brelwin
