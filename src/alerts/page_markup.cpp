#include "alerts/page_markup.h"

#include <algorithm>

#include "base/entities.h"
#include "base/text.h"

namespace brelwin {
namespace {

constexpr std::string_view NoBreakSpace = "\xC2\xA0";

bool MayNeedWork(char c) {
  return c == '&' || c == '\r' || c == '\n' || c == '\t' || c == NoBreakSpace[0];
}

}  // namespace

std::optional<std::string_view> TakeBetween(std::string_view& rest, std::string_view begin,
                                            std::string_view end) {
  const auto first = rest.find(begin);
  if (first == std::string_view::npos) return {};
  const auto content = first + begin.size();
  const auto last = rest.find(end, content);
  if (last == std::string_view::npos) return {};
  const auto between = rest.substr(content, last - content);
  rest.remove_prefix(last + end.size());
  return between;
}

std::optional<std::string_view> TakeCell(std::string_view& rest) {
  auto cell = TakeBetween(rest, "<td", "</td>");
  if (!cell) return {};
  const auto tagEnd = cell->find('>');
  if (tagEnd == std::string_view::npos) return std::string_view();
  return cell->substr(tagEnd + 1);
}

std::string_view TakeWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  const auto word = rest.substr(0, rest.find(' '));
  rest.remove_prefix(word.size());
  return word;
}

std::string_view TakePart(std::string_view& rest, char delimiter) {
  const auto part = rest.substr(0, rest.find(delimiter));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

std::string WithBlanks(std::string text) {
  for (char& c : text) c = c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
  return text;
}

std::string PlainText(std::string_view text) {
  if (std::none_of(text.begin(), text.end(), MayNeedWork)) return std::string(Trim(text));
  auto plain = WithBlanks(DecodeEntities(text));
  if (Contains(plain, NoBreakSpace)) plain = Replace(plain, NoBreakSpace, " ");
  plain.erase(plain.find_last_not_of(' ') + 1);
  plain.erase(0, plain.find_first_not_of(' '));
  return plain;
}

}  // namespace brelwin
