#include "spots/summit_details.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "base/text.h"

namespace brelwin {
namespace {

struct Figure {
  std::int64_t Number = 0;
  std::string_view Unit;
};

// "2647m" or "8 points": digits, and one word behind them.
std::optional<Figure> ReadFigure(std::string_view text) {
  Figure figure;
  const auto* end = text.data() + text.size();
  const auto [next, error] = std::from_chars(text.data(), end, figure.Number);
  if (error != std::errc() || figure.Number < 0) return {};
  figure.Unit = Trim({next, static_cast<std::size_t>(end - next)});
  return figure;
}

bool IsPoints(std::string_view unit) {
  constexpr std::string_view Words[] = {"points", "point", "point(s)", "pts", "pt"};
  return std::ranges::any_of(Words, [unit](std::string_view word) { return EqualsIgnoringCase(unit, word); });
}

bool IsMeters(std::string_view unit) {
  return EqualsIgnoringCase(unit, "m");
}

// Takes the last part, separated by a comma, off the text when it is a figure of this unit.
template <class Number>
void TakeLast(std::string_view& text, bool (*isUnit)(std::string_view), Number& number) {
  const auto comma = text.rfind(',');
  const auto figure = ReadFigure(Trim(comma == std::string_view::npos ? text : text.substr(comma + 1)));
  if (!figure || !isUnit(figure->Unit)) return;
  number = std::in_range<Number>(figure->Number) ? static_cast<Number>(figure->Number) : Number{};
  text = Trim(comma == std::string_view::npos ? std::string_view() : text.substr(0, comma));
}

}  // namespace

std::string SummitReference(std::string_view association, std::string_view code) {
  if (association.empty() || code.empty() || Contains(code, "/")) return std::string(code);
  return std::string(association).append("/").append(code);
}

SummitDetails ReadSummitDetails(std::string_view text) {
  SummitDetails details;
  auto rest = Trim(text);
  TakeLast(rest, IsPoints, details.Points);
  TakeLast(rest, IsMeters, details.ElevationInMeters);
  details.Name = rest;
  return details;
}

std::string SummitDescriptionText(const SummitDetails& details) {
  auto text = details.Name;
  if (text.empty() && details.ElevationInMeters == 0 && details.Points == 0) return text;
  const auto add = [&text](const std::string& part) { text.append(text.empty() ? "" : ", ").append(part); };
  if (details.ElevationInMeters != 0) add(std::to_string(details.ElevationInMeters) + "m");
  add(std::to_string(details.Points));
  return text;
}

}  // namespace brelwin
