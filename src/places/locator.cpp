#include "places/locator.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "base/text.h"

namespace brelwin {
namespace {

// What one pair of characters divides each side into: fields, squares, subsquares, extended squares.
struct Division {
  char First;
  int Parts;
};
constexpr std::array<Division, 4> Divisions{{{'A', 18}, {'0', 10}, {'A', 24}, {'0', 10}}};

// Counts from the south-western corner of the world, in pieces of the finest division met so far.
std::optional<GeoPoint> ReadLocator(std::string_view text) {
  if (text.size() % 2 != 0 || text.size() < 4 || text.size() > 2 * Divisions.size()) return std::nullopt;
  double east = 0;
  double north = 0;
  double parts = 1;
  for (std::size_t pair = 0; 2 * pair < text.size(); ++pair) {
    const auto [first, count] = Divisions[pair];
    const int column = text[2 * pair] - first;
    const int row = text[2 * pair + 1] - first;
    if (std::min(column, row) < 0 || std::max(column, row) >= count) return std::nullopt;
    east = east * count + column;
    north = north * count + row;
    parts *= count;
  }
  return GeoPoint{(north + 0.5) * 180 / parts - 90, (east + 0.5) * 360 / parts - 180};
}

// Degrees with a sign or with one of the two letters behind them.
std::optional<double> ReadDegrees(std::string_view text, std::string_view letters, double most) {
  text = Trim(text);
  double sign = 1;
  if (!text.empty() && letters.find(text.back()) != std::string_view::npos) {
    if (text.back() == letters.back()) sign = -1;
    text = Trim(text.substr(0, text.size() - 1));
  }
  double degrees = 0;
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), degrees);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return std::abs(degrees) <= most ? std::optional(sign * degrees) : std::nullopt;
}

std::optional<GeoPoint> ReadCoordinates(std::string_view text) {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const auto latitude = ReadDegrees(text.substr(0, comma), "NS", 90);
  const auto longitude = ReadDegrees(text.substr(comma + 1), "EW", 180);
  if (!latitude || !longitude) return std::nullopt;
  return GeoPoint{*latitude, *longitude};
}

// Counted over the whole world; the date line and the north pole belong to the last one. The middle of a
// square is where four subsquares meet: it falls to one of them whatever the rounding.
int SubsquareAt(double shareOfWorld) {
  constexpr int count = 18 * 10 * 24;
  constexpr double rounding = 1e-6;
  return std::clamp(static_cast<int>(shareOfWorld * count + rounding), 0, count - 1);
}

}  // namespace

std::optional<GeoPoint> ReadPlace(std::string_view text) {
  const auto upper = UpperCase(Trim(text));
  return Contains(upper, ",") ? ReadCoordinates(upper) : ReadLocator(upper);
}

std::string LocatorText(GeoPoint place) {
  const int east = SubsquareAt((place.Longitude + 180) / 360);
  const int north = SubsquareAt((place.Latitude + 90) / 180);
  const auto pair = [&](char first, int size, int count) {
    return std::string{static_cast<char>(first + east / size % count),
                       static_cast<char>(first + north / size % count)};
  };
  return pair('A', 240, 18) + pair('0', 24, 10) + pair('a', 1, 24);
}

}  // namespace brelwin
