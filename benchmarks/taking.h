// Takes apart texts of which everything is known: nothing is ever missing.
#pragma once

#include <charconv>
#include <string>
#include <string_view>

namespace brelwin::benchmarks {

// What stands before the mark, which is taken away with it.
inline std::string_view TakeUntil(std::string_view& rest, std::string_view mark) {
  const auto at = rest.find(mark);
  const auto taken = rest.substr(0, at);
  rest.remove_prefix(at + mark.size());
  return taken;
}

// The number at the beginning.
template <class Number>
Number NumberIn(std::string_view text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// What stands before the stroke, or all of it.
inline std::string BaseOf(std::string_view callsign) {
  return std::string(callsign.substr(0, callsign.find('/')));
}

}  // namespace brelwin::benchmarks
