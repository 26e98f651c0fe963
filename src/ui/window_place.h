// Where the window goes: the place it had, put back onto the screens that there are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// In pixels of the whole desktop, of which any part may be left of or above its origin.
struct Rectangle {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;

  bool operator==(const Rectangle&) const = default;
};

struct WindowPlace {
  Rectangle Bounds;  // while it is not maximised
  bool IsMaximised = false;

  bool operator==(const WindowPlace&) const = default;
};

// A place as the settings have it: "left,top,width,height", with ",maximised" behind it for one that is.
// Empty for any other text, also for sizes below 1 and numbers that no desktop has.
std::string WindowPlaceText(const WindowPlace& place);
std::optional<WindowPlace> ReadWindowPlace(std::string_view text);

// The place itself when the screens, which do not overlap, show all of it. Else it is moved, and made smaller
// if it must be, onto the screen that shows most of it; onto the first when none does. Without a screen it
// stays.
Rectangle FitOntoScreens(const Rectangle& place, const std::vector<Rectangle>& screens);

}  // namespace brelwin
