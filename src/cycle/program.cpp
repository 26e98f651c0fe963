#include "cycle/program.h"

#include "cycle/handlers.h"
#include "cycle/main_window.h"
#include "cycle/shut_down.h"
#include "cycle/start_up.h"

namespace brelwin {

Program::Program(Host& host) : window_(std::make_unique<MainWindow>(host)) {
  ConnectHandlers(*window_);
}

Program::~Program() = default;

Screen& Program::Controls() {
  return window_->Controls;
}

BoardKeeper& Program::Activations() {
  return window_->Activations;
}

Surroundings& Program::Around() {
  return window_->Around;
}

void Program::Start(std::string_view commandLine, std::string_view passwordFromEnvironment) {
  if (window_->Unloaded) return;
  window_->Ways.Enter([&] { Form_Load(*window_, commandLine, passwordFromEnvironment); });
}

void Program::Quit() {
  window_->Ways.Enter([&] { Form_QueryUnload(*window_); });
}

}  // namespace brelwin
