#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace brelwin {
namespace {

char ToUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Eight characters at once. Adding to the lower seven bits of each sets its highest bit where the character
// reaches "a", or is beyond "z".
std::uint64_t UpperCaseBytes(std::uint64_t word) {
  constexpr std::uint64_t Each = 0x0101010101010101;
  const auto lowerBits = word & (Each * 0x7F);
  const auto reachesA = lowerBits + Each * (0x80 - 'a');
  const auto isBeyondZ = lowerBits + Each * (0x7F - 'z');
  const auto isSmall = reachesA & ~isBeyondZ & ~word & (Each * 0x80);
  return word - (isSmall >> 2);  // a small letter is 0x20 above its capital
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToUpper);
  return result;
}

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToLower);
  return result;
}

// Quick answers first: most texts that differ do so in length or in the first letter, and most that are equal
// are so in case as well.
bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  const auto isEqual = [](char a, char b) { return ToUpper(a) == ToUpper(b); };
  if (left.size() != right.size()) return false;
  if (left.empty()) return true;
  return isEqual(left[0], right[0]) &&
         (left == right || std::equal(left.begin(), left.end(), right.begin(), isEqual));
}

// Eight bytes at a time: keys are long and looked up often.
std::size_t HashIgnoringCase(std::string_view text) {
  constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15;  // 2^64 by the golden ratio
  std::uint64_t hash = text.size();
  const auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ UpperCaseBytes(word)) * Spread;
    hash ^= hash >> 32;
  };
  std::uint64_t word = 0;
  for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
    std::memcpy(&word, text.data(), sizeof word);
    mix(word);
  }
  word = 0;
  for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
  mix(word);
  return hash;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  result.reserve(text.size());
  std::size_t begin = 0;
  if (!what.empty()) {
    for (auto at = text.find(what); at != std::string_view::npos; at = text.find(what, begin)) {
      result.append(text.substr(begin, at - begin)).append(with);
      begin = at + what.size();
    }
  }
  return result.append(text.substr(begin));
}

std::string Without(std::string text, std::string_view part) {
  auto kept = part.empty() ? std::string::npos : text.find(part);
  if (kept == std::string::npos) return text;
  for (auto begin = kept + part.size(); begin <= text.size();) {
    const auto end = std::min(text.find(part, begin), text.size());
    std::copy(text.data() + begin, text.data() + end, text.data() + kept);
    kept += end - begin;
    begin = end + part.size();
  }
  text.resize(kept);
  return text;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter) {
  std::vector<std::string_view> pieces;
  std::size_t begin = 0;
  if (!delimiter.empty()) {
    for (auto at = text.find(delimiter); at != std::string_view::npos; at = text.find(delimiter, begin)) {
      pieces.push_back(text.substr(begin, at - begin));
      begin = at + delimiter.size();
    }
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    auto line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace brelwin
