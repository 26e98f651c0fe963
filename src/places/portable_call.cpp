#include "places/portable_call.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "base/text.h"

namespace brelwin {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// How a station works, or who operates it; nothing of where it is.
bool SaysNoPlace(std::string_view part) {
  constexpr std::array<std::string_view, 8> marks{"P", "M", "A", "QRP", "QRPP", "LH", "B", "R"};
  return std::ranges::find(marks, part) != marks.end();
}

bool IsOffLand(std::string_view part) {
  return part == "MM" || part == "AM";
}

// The call area moves with its digit: the last one of the prefix.
std::string WithDigit(std::string call, char digit) {
  const auto last = call.find_last_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  if (last != std::string::npos && last > 0 && IsDigit(call[last])) call[last] = digit;
  return call;
}

// The shorter part is the place; of two as long, the one in front.
std::string_view PlacePart(const std::vector<std::string_view>& parts) {
  return *std::ranges::min_element(parts, {}, [](std::string_view part) { return part.size(); });
}

}  // namespace

std::string CallWithoutSkimmerMark(std::string_view callsign) {
  callsign = Trim(callsign);
  return UpperCase(callsign.substr(0, callsign.find('-')));
}

std::string CallThatTellsCountry(std::string_view callsign) {
  const auto call = CallWithoutSkimmerMark(callsign);
  std::vector<std::string_view> parts;
  char newDigit = 0;
  for (const auto part : Split(call, "/")) {
    if (IsOffLand(part)) return {};
    if (part.size() == 1 && IsDigit(part.front()))
      newDigit = part.front();
    else if (!part.empty() && (parts.empty() || !SaysNoPlace(part)))
      parts.push_back(part);
  }
  if (parts.empty()) return {};
  std::string place(PlacePart(parts));
  return newDigit != 0 && parts.size() == 1 ? WithDigit(place, newDigit) : place;
}

}  // namespace brelwin
