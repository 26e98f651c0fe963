// What both skins do alike: Qt's application object, and one run of the program, from taking its folder to
// the end.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cycle/program.h"
#include "platform/program_folder.h"
#include "qt/ports/desktop_host.h"

namespace brelwin {

// Everything after the program's name, joined by single blanks.
std::string CommandLine(int argumentCount, char** arguments);

// Opens what is missing of the standard streams and calls `make`, which makes the application object. Qt
// then takes the user's locale for the whole process; only what it needs for typing stays, so that numbers
// and error texts are the same everywhere.
void MakeApplication(const std::function<void()>& make);

// Leaves the process at once: a name that is still being resolved in the background is not waited for.
[[noreturn]] void LeaveProcess(int status);

// The folder to work in and the lock on it; or what to tell the user when there is none to be had, as when
// another instance works in it.
struct TakenFolder {
  std::string Path;
  std::optional<FolderLock> Lock;
  std::string Complaint;
};

TakenFolder TakeProgramFolder();

// Starts the program and runs it until it has quit, by the user or by a signal.
void RunUntilQuit(DesktopHost& host, Program& program, const std::string& commandLine);

}  // namespace brelwin
