// Every way into the program (a tick, a click, start-up) is an entry. Entries nest, since a wait in one lets
// others in; what quitting still has to do happens when the outermost one ends.
#pragma once

#include <utility>

#include "cycle/main_window.h"
#include "cycle/shut_down.h"

namespace brelwin {

// Runs the body as an entry. It must not throw: procedures trap their own errors.
template <class Body>
void Enter(MainWindow& window, Body&& body) {
  ++window.EntryDepth;
  std::forward<Body>(body)();
  --window.EntryDepth;
  UnloadWhenDue(window);
}

}  // namespace brelwin
