// The program with its window.
#include <QApplication>
#include <memory>

#include "qt/ports/program_run.h"
#include "qt/ports/quit_signals.h"
#include "qt/window/program_icon.h"
#include "qt/window/program_window.h"
#include "qt/window/window_dialogs.h"
#include "radio/dates.h"

namespace {

using namespace brelwin;

// Shown when there is no program yet that could show it.
int Refuse(const std::string& complaint) {
  const QuitSignals signals(&QApplication::quit);
  QApplication::setWindowIcon(ProgramIcon());
  WindowDialogs().ShowMessage(complaint, "Brelwin", MessageIcon::Exclamation);
  QApplication::exec();
  return 1;
}

ActivationDoors DoorsOf(Program& program, Host& world) {
  auto& open = program.Controls().Board;
  auto& around = program.Around();
  auto& keeper = program.Activations();
  return {{keeper.Board(),
           keeper.Changed,
           [&time = world.Time] { return UTCNow(time); },
           [&around](const ActivationRow& row) { return around.Of(row); },
           [&open](const std::string& summit) { open.OpenSummit(summit); },
           [&open](const std::string& baseCallsign) { open.OpenStation(baseCallsign); },
           {},
           [&around](BoardColumn column) { return around.Missing(column); }},
          keeper,
          around,
          world};
}

int Run(const std::string& commandLine) {
  const auto folder = TakeProgramFolder();
  if (!folder.Complaint.empty()) return Refuse(folder.Complaint);
  QApplication::setQuitOnLastWindowClosed(false);  // the program decides when it ends
  WindowDialogs dialogs;
  const SystemFiles files;
  DesktopHost host(folder.Path, dialogs, [&](std::string_view path) { return ShowTextFile(files, path); });
  Program program(host.World());
  ProgramWindow window(
      program.Controls(), [&program] { program.Quit(); }, DoorsOf(program, host.World()));
  RunUntilQuit(host, program, commandLine);
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  HoldQuitSignals();
  const auto commandLine = CommandLine(argumentCount, arguments);
  int forQt = 1;  // its own options are none of the program's
  std::unique_ptr<QApplication> application;
  MakeApplication([&] { application = std::make_unique<QApplication>(forQt, arguments); });
  LeaveProcess(Run(commandLine));
}
