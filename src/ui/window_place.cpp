#include "ui/window_place.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>

#include "base/text.h"

namespace brelwin {
namespace {

constexpr std::string_view MaximisedWord = "maximised";
constexpr int LargestNumber = 100'000;

std::optional<int> NumberOf(std::string_view text) {
  int number = 0;
  const auto* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end || std::abs(number) > LargestNumber) return {};
  return number;
}

int SharedLength(int oneStart, int oneLength, int otherStart, int otherLength) {
  return std::max(0,
                  std::min(oneStart + oneLength, otherStart + otherLength) - std::max(oneStart, otherStart));
}

std::int64_t SharedArea(const Rectangle& one, const Rectangle& other) {
  return std::int64_t{SharedLength(one.Left, one.Width, other.Left, other.Width)} *
         SharedLength(one.Top, one.Height, other.Top, other.Height);
}

Rectangle FitInto(const Rectangle& screen, Rectangle place) {
  place.Width = std::min(place.Width, screen.Width);
  place.Height = std::min(place.Height, screen.Height);
  place.Left = std::clamp(place.Left, screen.Left, screen.Left + screen.Width - place.Width);
  place.Top = std::clamp(place.Top, screen.Top, screen.Top + screen.Height - place.Height);
  return place;
}

}  // namespace

std::string WindowPlaceText(const WindowPlace& place) {
  const auto& bounds = place.Bounds;
  auto text = std::to_string(bounds.Left) + "," + std::to_string(bounds.Top) + "," +
              std::to_string(bounds.Width) + "," + std::to_string(bounds.Height);
  if (place.IsMaximised) text.append(",").append(MaximisedWord);
  return text;
}

std::optional<WindowPlace> ReadWindowPlace(std::string_view text) {
  auto pieces = Split(text, ",");
  WindowPlace place;
  place.IsMaximised = pieces.size() == 5 && Trim(pieces.back()) == MaximisedWord;
  if (place.IsMaximised) pieces.pop_back();
  if (pieces.size() != 4) return {};
  int* const numbers[] = {&place.Bounds.Left, &place.Bounds.Top, &place.Bounds.Width, &place.Bounds.Height};
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto number = NumberOf(Trim(pieces[i]));
    if (!number) return {};
    *numbers[i] = *number;
  }
  if (place.Bounds.Width < 1 || place.Bounds.Height < 1) return {};
  return place;
}

Rectangle FitOntoScreens(const Rectangle& place, const std::vector<Rectangle>& screens) {
  if (screens.empty()) return place;
  std::int64_t shown = 0;
  for (const auto& screen : screens) shown += SharedArea(place, screen);
  if (shown == std::int64_t{place.Width} * place.Height) return place;
  const auto most = std::max_element(screens.begin(), screens.end(), [&](const auto& one, const auto& other) {
    return SharedArea(place, one) < SharedArea(place, other);
  });
  return FitInto(*most, place);
}

}  // namespace brelwin
