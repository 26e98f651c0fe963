// Start-up: from the command line and the settings file to the first list of spots.
#pragma once

#include <string_view>

#include "cycle/main_window.h"

namespace brelwin {

// Start-up, step by step; a step that fails is shown and logged, and the next one follows.
void Form_Load(MainWindow& window, std::string_view commandLine, std::string_view passwordFromEnvironment);

// Once the start-up delay is over: the first list of spots, then the timer. The timer rests until then.
void InitializeInternetConnections(MainWindow& window);

// Writes how many seconds are left of the start-up delay into the list.
void ShowStartupDelay(MainWindow& window, std::string_view secondsLeft);

// The timer's interval in milliseconds: the box's whole number of seconds when it is 1 to 64, else 5 s. This
// is wider on purpose than what the settings screen lets the user type.
int TimerInterval(const MainWindow& window);

}  // namespace brelwin
