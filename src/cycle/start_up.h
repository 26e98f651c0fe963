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
void ShowStartupDelay(SpotListBox& box, float secondsLeft);

// The start-up delay in seconds that the command line asks for: "DELAY=" in any letter case and a number, or
// the bare number. 0 for an empty command line, a bare "DELAY=" and anything that is not a number.
float ReadStartupDelay(std::string_view commandLine);

}  // namespace brelwin
