#include "radio/web_address.h"

#include "base/encoding.h"
#include "base/text.h"

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

namespace {

bool IsDottedNumber(std::string_view host) {
  return host.find_first_not_of("0123456789.") == std::string_view::npos;
}

}  // namespace

std::string HostOfAddress(std::string_view address) {
  constexpr std::string_view EndOfScheme = "://";
  const auto scheme = address.find(EndOfScheme);
  if (scheme != std::string_view::npos) address.remove_prefix(scheme + EndOfScheme.size());
  auto authority = address.substr(0, address.find_first_of("/?#"));
  if (const auto at = authority.rfind('@'); at != std::string_view::npos) authority.remove_prefix(at + 1);
  if (authority.starts_with('[')) return LowerCase(authority.substr(1, authority.find(']') - 1));
  return LowerCase(authority.substr(0, authority.find(':')));
}

bool IsThisMachine(std::string_view host) {
  return host == "localhost" || host == "::1" || (host.starts_with("127.") && IsDottedNumber(host));
}

}  // namespace brelwin
