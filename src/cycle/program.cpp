#include "cycle/program.h"

#include "cycle/check_cycle.h"
#include "cycle/entry.h"
#include "cycle/handlers.h"
#include "cycle/main_window.h"
#include "cycle/start_up.h"

namespace brelwin {

Program::Program(Host& host) : window_(std::make_unique<MainWindow>(host)) {
  ConnectHandlers(*window_);
}

Program::~Program() = default;

Screen& Program::Controls() {
  return window_->Controls;
}

void Program::Start(std::string_view commandLine, std::string_view passwordFromEnvironment) {
  if (window_->Unloaded) return;
  Enter(*window_, [&] { Form_Load(*window_, commandLine, passwordFromEnvironment); });
}

void Program::Quit() {
  Enter(*window_, [&] { Form_QueryUnload(*window_); });
}

}  // namespace brelwin
