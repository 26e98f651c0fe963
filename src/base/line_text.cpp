#include "base/line_text.h"

#include <algorithm>

#include "base/encoding.h"

namespace brelwin {
namespace {

bool BreaksALine(char32_t c) {
  constexpr char32_t LineSeparator = 0x2028;
  constexpr char32_t ParagraphSeparator = 0x2029;
  return IsControlCharacter(c) || c == LineSeparator || c == ParagraphSeparator;
}

// Appends at most `count` characters and returns how many there were.
std::size_t AppendCharacters(std::string& line, std::string_view text, std::size_t count) {
  std::size_t appended = 0;
  for (; appended < count && !text.empty(); ++appended) {
    if (text.starts_with("\r\n")) text.remove_prefix(1);
    const auto c = TakeCodePoint(text);
    AppendCodePoint(line, BreaksALine(c) ? U' ' : c);
  }
  return appended;
}

}  // namespace

bool IsControlCharacter(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

bool IsPlainText(std::string_view text) {
  constexpr unsigned char LastOffset = '~' - ' ';
  unsigned char isOther = 0;  // no way out of the loop: it runs over many bytes at a time
  for (const char c : text) isOther |= static_cast<unsigned char>(c - ' ') > LastOffset ? 1 : 0;
  return isOther == 0;
}

void AppendPadded(std::string& line, std::string_view text, std::size_t shown, std::size_t width) {
  line.append(width - AppendCharacters(line, text, shown), ' ');
}

void AppendAlignedRight(std::string& line, std::string_view text, std::size_t width) {
  std::string cell;
  const auto length = AppendCharacters(cell, text, width);
  line.append(width - length, ' ').append(cell);
}

void AppendPrintable(std::string& line, std::string_view text) {
  if (IsPlainText(text)) {
    line.append(text);
  } else {
    AppendCharacters(line, text, text.size());
  }
}

void AppendWithoutLineEnds(std::string& line, std::string_view text) {
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of("\r\n"), text.size());
    line.append(text.substr(0, end));
    text.remove_prefix(end);
    if (text.empty()) return;
    line.push_back(' ');
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  }
}

}  // namespace brelwin
