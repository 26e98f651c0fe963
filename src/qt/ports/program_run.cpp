#include "qt/ports/program_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <QString>
#include <QtGlobal>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "platform/system_information.h"
#include "qt/ports/quit_signals.h"

namespace brelwin {

namespace {

// A user without a locale is none of Qt's business; a display that cannot be reached is.
void PrintFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

// Whoever starts the program may have closed its standard streams. Their numbers must not fall to the next
// file that is opened: lines for the terminal would go into it.
void OpenStandardStreams() {
  int descriptor = 0;
  do {
    descriptor = ::open("/dev/null", O_RDWR);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  ::close(descriptor);
}

}  // namespace

std::string CommandLine(int argumentCount, char** arguments) {
  std::string line;
  for (int index = 1; index < argumentCount; ++index) {
    if (index > 1) line += ' ';
    line += arguments[index];
  }
  return line;
}

void MakeApplication(const std::function<void()>& make) {
  OpenStandardStreams();
  const auto original = qInstallMessageHandler(PrintFatal);
  make();
  qInstallMessageHandler(original);
  const char* typing = std::setlocale(LC_CTYPE, nullptr);
  const std::string kept = typing == nullptr ? "C" : typing;
  std::setlocale(LC_ALL, "C");
  std::setlocale(LC_CTYPE, kept.c_str());
}

void LeaveProcess(int status) {
  std::fflush(nullptr);
  std::_Exit(status);
}

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
