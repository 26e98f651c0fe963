#include "board/quit_words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/text.h"

namespace brelwin {
namespace {

using Words = std::initializer_list<std::string_view>;

bool IsWordCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view FirstWord(std::string_view text) {
  while (!text.empty() && !IsWordCharacter(text.front())) text.remove_prefix(1);
  const auto end = std::ranges::find_if_not(text, IsWordCharacter);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string_view LastWord(std::string_view text) {
  while (!text.empty() && !IsWordCharacter(text.back())) text.remove_suffix(1);
  auto start = text.size();
  while (start > 0 && IsWordCharacter(text[start - 1])) --start;
  return text.substr(start);
}

bool IsOneOf(std::string_view word, Words words) {
  return std::ranges::find(words, word) != words.end();
}

bool IsWholeWord(std::string_view before, std::string_view after) {
  return (before.empty() || !IsWordCharacter(before.back())) &&
         (after.empty() || !IsWordCharacter(after.front()));
}

bool IsPutOff(std::string_view before, std::string_view after) {
  if (Trim(after).starts_with('?')) return true;
  return IsOneOf(FirstWord(after), {"IN", "SOON", "AT", "AFTER", "AROUND", "BY", "LATER"}) ||
         IsOneOf(LastWord(before), {"NOT", "NO", "BEFORE", "UNTIL", "TILL", "NEARLY", "ALMOST", "SOON"});
}

}  // namespace

bool SaysQRT(std::string_view comment) {
  constexpr std::string_view Word = "QRT";
  const auto capitals = UpperCase(comment);
  const std::string_view text = capitals;
  for (auto at = text.find(Word); at != std::string_view::npos; at = text.find(Word, at + 1)) {
    const auto before = text.substr(0, at);
    const auto after = text.substr(at + Word.size());
    if (IsWholeWord(before, after) && !IsPutOff(before, after)) return true;
  }
  return false;
}

}  // namespace brelwin
