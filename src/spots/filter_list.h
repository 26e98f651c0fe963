// A user's comma list, read once so that many values can be tested against it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// Items are exact values or, ending in "*", prefixes; a "*" elsewhere in a prefix is dropped ("W*6*" is
// "W6"). ASCII letter case does not matter.
class FilterList {
 public:
  explicit FilterList(std::string_view list);

  // True for a blank list. A list of commas alone does restrict: it has no item that could match.
  bool MatchesEverything() const { return matchesEverything_; }

  // Whether the value is on the list. An empty value is on every list.
  bool Matches(std::string_view value) const;

 private:
  struct Item {
    std::string Text;  // upper case
    bool IsPrefix;

    bool Matches(std::string_view value) const;
  };

  std::vector<Item> items_;
  bool matchesEverything_;
};

}  // namespace brelwin
