// Every way into the program (a tick, a click, start-up) is an entry. Entries nest, since a wait in one lets
// others in; what quitting still has to do happens when the outermost one ends.
#pragma once

#include <functional>
#include <utility>

#include "controls/control.h"
#include "platform/host.h"

namespace brelwin {

class Entries {
 public:
  explicit Entries(Host& host) : host_(host) {}

  std::function<void()> WhenNoneIsLeft;  // called at the end of every outermost entry

  // Runs the body as an entry. It must not throw: procedures trap their own errors.
  template <class Body>
  void Enter(Body&& body) {
    ++depth_;
    std::forward<Body>(body)();
    if (--depth_ == 0) WhenNoneIsLeft();
  }

  // Runs the body, whose errors are swallowed, as an entry when the work may start now; else the input is
  // dropped.
  void Take(Work work, const std::function<void()>& body);

  // What does that, to be called when the user does something. The entries must outlive it.
  std::function<void()> Handler(std::function<void()> body);
  std::function<void()> Command(std::function<void()> body);

  // A handler for a box, which is not ticked while its click cannot be acted on.
  std::function<void()> BoxHandler(CheckBox& box, std::function<void()> body);

 private:
  Host& host_;
  int depth_ = 0;
};

}  // namespace brelwin
