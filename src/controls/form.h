// The window itself and its timer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/observable.h"

namespace brelwin {

enum class WindowState : std::uint8_t { Normal = 0, Minimised = 1, Maximised = 2 };

struct Form {
  Observable<std::string> Caption;
  Observable<WindowState> State{WindowState::Normal};
  Observable<int> CurrentTab{0};  // of SSTab1; 0 is the Spots tab
  Observable<bool> Hourglass{false};
  Signal Show;
  Signal SetFocus;
};

// The one timer that drives everything, tmrCheckSpots. It fires again and again, an Interval apart, while it
// is Enabled; setting either starts the interval anew.
struct CheckTimer {
  Observable<bool> Enabled{false};
  Observable<int> Interval{5000};  // milliseconds
};

}  // namespace brelwin
