#include "qt/ports/program_run.h"

#include <QtGlobal>

#include "platform/environment.h"
#include "qt/ports/quit_signals.h"

namespace brelwin {
namespace {

constexpr const char* PasswordVariable = "BRELWIN_SOTAWATCH_PASSWORD";

// Taken out of the environment, so that the programs we start do not inherit it.
std::string TakePassword() {
  auto password = EnvironmentVariable(PasswordVariable).value_or("");
  qunsetenv(PasswordVariable);
  return password;
}

std::string AlreadyRunning(const std::string& folder) {
  return "Brelwin is already running in the folder " + folder +
         ". Close it first, or name another folder in the environment variable BRELWIN_FOLDER.";
}

std::string NotUsable(const ProgramFolder& folder) {
  return "The folder " + folder.Path + " cannot be used: " + folder.ErrorText + ".";
}

}  // namespace

TakenFolder TakeProgramFolder() {
  TakenFolder taken;
  const auto folder = FindProgramFolder();
  taken.Path = folder.Path;
  if (!folder.ErrorText.empty()) taken.Complaint = NotUsable(folder);
  if (!taken.Complaint.empty()) return taken;
  taken.Lock = FolderLock::Take(folder.Path);
  if (!taken.Lock) taken.Complaint = AlreadyRunning(folder.Path);
  return taken;
}

void RunUntilQuit(DesktopHost& host, Program& program, const std::string& commandLine) {
  const QuitSignals signals([&program] { program.Quit(); });
  const auto password = TakePassword();
  const auto start =
      host.Events().CallAfter(Milliseconds::zero(), [&] { program.Start(commandLine, password); });
  host.Events().Run();
}

}  // namespace brelwin
