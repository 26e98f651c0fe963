// What both executables do around Qt's application object.
#pragma once

#include <functional>
#include <string>

namespace brelwin {

// Everything after the program's name, joined by single blanks.
std::string CommandLine(int argumentCount, char** arguments);

// Opens what is missing of the standard streams and calls `make`, which makes the application object. Qt
// then takes the user's locale for the whole process; only what it needs for typing stays, so that numbers
// and error texts are the same everywhere.
void MakeApplication(const std::function<void()>& make);

// Leaves the process at once: a name that is still being resolved in the background is not waited for.
[[noreturn]] void LeaveProcess(int status);

}  // namespace brelwin
