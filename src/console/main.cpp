// The program for machines without a display.
#include <QCoreApplication>
#include <csignal>
#include <memory>
#include <optional>

#include "console/board_printer.h"
#include "console/spot_printer.h"
#include "console/stderr_dialogs.h"
#include "platform/system_information.h"
#include "qt/ports/line_output.h"
#include "qt/ports/program_run.h"
#include "qt/ports/quit_signals.h"

namespace {

using namespace brelwin;

int Run(const std::string& commandLine) {
  StderrDialogs dialogs;
  const auto folder = TakeProgramFolder();
  if (!folder.Complaint.empty()) {
    dialogs.ShowMessage(folder.Complaint, "Brelwin", MessageIcon::Exclamation);
    return 1;
  }
  LineOutput output(1);
  DesktopHost host(folder.Path, dialogs);
  Program program(host.World());
  const auto print = [&output](std::string_view text) { output.Write(text); };
  std::optional<SpotPrinter> spots;
  std::optional<BoardPrinter> board;
  if (EnvironmentVariable("BRELWIN_CONSOLE_VIEW") == "board") {
    board.emplace(
        host.World(), program.Activations(),
        [&program](const ActivationRow& row) { return program.Around().Of(row); }, program.Controls(),
        BoardPrinter::Output{print, [] { return SizeOfTerminal(1); }});
  } else {
    spots.emplace(program.Controls(), print);
  }
  RunUntilQuit(host, program, commandLine);
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  HoldQuitSignals();
  std::signal(SIGPIPE, SIG_IGN);  // a reader that is gone must not end the logs
  const auto commandLine = CommandLine(argumentCount, arguments);
  int forQt = 1;  // its own options are none of the program's
  std::unique_ptr<QCoreApplication> application;
  MakeApplication([&] { application = std::make_unique<QCoreApplication>(forQt, arguments); });
  LeaveProcess(Run(commandLine));
}
