// The program for machines without a display.
#include <QCoreApplication>
#include <csignal>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "console/board_printer.h"
#include "console/spot_printer.h"
#include "platform/shell.h"
#include "platform/system_information.h"
#include "qt/ports/line_output.h"
#include "qt/ports/program_run.h"
#include "qt/ports/quit_signals.h"

namespace {

using namespace brelwin;

// Messages of a program without a window: one line each on the standard error output.
class StderrDialogs final : public Dialogs {
 public:
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon /*icon*/) override {
    output_.Write(std::string(title) + ": " + std::string(text));
  }
  void Ask(std::string_view question, std::string_view title, std::function<void()> /*onYes*/) override {
    ShowMessage(question, title, MessageIcon::Exclamation);
  }

 private:
  LineOutput output_{2};
};

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
