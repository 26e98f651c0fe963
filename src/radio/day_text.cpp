#include "radio/day_text.h"

#include <algorithm>

#include "base/text.h"

namespace brelwin {
namespace {

std::optional<DateTime> DayOf(std::string_view year, std::string_view month, std::string_view day) {
  const auto yearNumber = ReadDigits(year);
  const auto monthNumber = ReadDigits(month);
  const auto dayNumber = ReadDigits(day);
  if (!yearNumber || !monthNumber || !dayNumber) return std::nullopt;
  const int century = year.size() > 2 ? 0 : *yearNumber < 70 ? 2000 : 1900;
  return DateTimeFromCalendar({.Year = century + *yearNumber, .Month = *monthNumber, .Day = *dayNumber});
}

// Three parts by two signs; empty when the text is not of that kind.
std::optional<DateTime> ReadParted(std::string_view text, char sign, bool yearFirst) {
  const auto first = text.find(sign);
  const auto second = text.find(sign, first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) return std::nullopt;
  const auto one = text.substr(0, first);
  const auto two = text.substr(first + 1, second - first - 1);
  const auto three = text.substr(second + 1);
  return yearFirst ? DayOf(one, two, three) : DayOf(three, two, one);
}

}  // namespace

std::optional<DateTime> ReadDay(std::string_view text) {
  text = Trim(text);
  text = text.substr(0, text.find_first_of(" T"));
  if (Contains(text, "/")) return ReadParted(text, '/', false);
  if (Contains(text, "-")) return ReadParted(text, '-', true);
  if (text.size() != 8) return std::nullopt;
  return DayOf(text.substr(0, 4), text.substr(4, 2), text.substr(6));
}

std::optional<int> ReadDigits(std::string_view text) {
  constexpr std::size_t most = 9;
  if (text.empty() || text.size() > most) return std::nullopt;
  if (!std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; })) return std::nullopt;
  int number = 0;
  for (const char digit : text) number = 10 * number + (digit - '0');
  return number;
}

}  // namespace brelwin
