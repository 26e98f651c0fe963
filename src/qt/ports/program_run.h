// One run of the program, from taking its folder to the end: what both skins do alike.
#pragma once

#include <optional>
#include <string>

#include "cycle/program.h"
#include "platform/program_folder.h"
#include "qt/ports/desktop_host.h"

namespace brelwin {

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
