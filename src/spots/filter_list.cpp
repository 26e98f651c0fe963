#include "spots/filter_list.h"

#include <algorithm>

#include "base/text.h"

namespace brelwin {
namespace {

bool IsUpperCaseOf(char upper, char c) {
  return c == upper || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == upper);
}

}  // namespace

FilterList::FilterList(std::string_view list) : matchesEverything_(Trim(list).empty()) {
  for (const auto piece : Split(list, ",")) {
    const auto item = Trim(piece);
    if (item.empty()) continue;
    const bool isPrefix = item.ends_with('*');
    const auto text = isPrefix ? Replace(item, "*", "") : std::string(item);
    items_.push_back({UpperCase(Trim(text)), isPrefix});
  }
}

bool FilterList::Item::Matches(std::string_view value) const {
  if (value.size() < Text.size() || (!IsPrefix && value.size() > Text.size())) return false;
  return std::equal(Text.begin(), Text.end(), value.begin(), IsUpperCaseOf);
}

bool FilterList::Matches(std::string_view value) const {
  const auto trimmed = Trim(value);
  if (matchesEverything_ || trimmed.empty()) return true;
  return std::any_of(items_.begin(), items_.end(), [&](const Item& item) { return item.Matches(trimmed); });
}

}  // namespace brelwin
