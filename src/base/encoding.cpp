#include "base/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace brelwin {
namespace {

constexpr std::array<char16_t, 32> Windows1252From80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

// Most text is plain, so it is looked at eight bytes at a time.
std::size_t AsciiLength(std::string_view bytes) {
  std::uint64_t word = 0;
  std::size_t length = 0;
  for (; bytes.size() - length >= sizeof word; length += sizeof word) {
    std::memcpy(&word, bytes.data() + length, sizeof word);
    if ((word & 0x8080808080808080) != 0) break;
  }
  while (length < bytes.size() && IsAscii(bytes[length])) ++length;
  return length;
}

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Length of the well-formed sequence at the start of `bytes`, or 0 when it is malformed.
std::size_t SequenceLength(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return 1;
  const std::size_t length = lead < 0xC2 ? 0U : lead < 0xE0 ? 2U : lead < 0xF0 ? 3U : lead < 0xF5 ? 4U : 0U;
  if (length == 0 || bytes.size() < length) return 0;
  const auto second = static_cast<unsigned char>(bytes[1]);
  const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool outside = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
  if (overlong || outside) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(bytes[i])) return 0;
  }
  return length;
}

void AppendLineAsUtf8(std::string& text, std::string_view line) {
  if (IsUtf8(line)) {
    text.append(line);
    return;
  }
  for (const char byte : line)
    AppendCodePoint(text, CodePointOfWindows1252(static_cast<unsigned char>(byte)));
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(AsciiLength(bytes));
    if (bytes.empty()) return true;
    const auto length = SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

char32_t CodePointOfWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? Windows1252From80[byte - 0x80U] : byte;
}

std::optional<unsigned char> CodeInWindows1252(char32_t codePoint) {
  if (codePoint <= 0xFF) return static_cast<unsigned char>(codePoint);
  const auto found = std::find(Windows1252From80.begin(), Windows1252From80.end(), codePoint);
  if (found == Windows1252From80.end()) return {};
  return static_cast<unsigned char>(0x80 + (found - Windows1252From80.begin()));
}

void AppendCodePoint(std::string& text, char32_t codePoint) {
  if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) codePoint = 0xFFFD;
  const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0U | (codePoint >> 6U));
    append(0x80U | (codePoint & 0x3FU));
  } else if (codePoint < 0x10000) {
    append(0xE0U | (codePoint >> 12U));
    append(0x80U | ((codePoint >> 6U) & 0x3FU));
    append(0x80U | (codePoint & 0x3FU));
  } else {
    append(0xF0U | (codePoint >> 18U));
    append(0x80U | ((codePoint >> 12U) & 0x3FU));
    append(0x80U | ((codePoint >> 6U) & 0x3FU));
    append(0x80U | (codePoint & 0x3FU));
  }
}

char32_t TakeCodePoint(std::string_view& text) {
  const auto length = SequenceLength(text);
  const auto lead = static_cast<unsigned char>(text[0]);
  if (length < 2) {
    text.remove_prefix(1);
    return length == 1 ? lead : CodePointOfWindows1252(lead);
  }
  char32_t codePoint = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i)
    codePoint = (codePoint << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  text.remove_prefix(length);
  return codePoint;
}

std::string TextFromBytes(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (IsUtf8(bytes)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  while (!bytes.empty()) {
    const auto end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    AppendLineAsUtf8(text, bytes.substr(0, end));
    bytes.remove_prefix(end);
  }
  return text;
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsContinuation(text[i]) && characters++ == count) return text.substr(0, i);
  }
  return text;
}

}  // namespace brelwin
