#include "cycle/entries.h"

#include "core/trap.h"

namespace brelwin {

void Entries::Take(Work work, const std::function<void()>& body) {
  if (!host_.Going.LetStart(work)) return;
  Enter([&] { TrapErrorsSilently(body); });
}

std::function<void()> Entries::Handler(std::function<void()> body) {
  return [this, body = std::move(body)] { Take(Work::Handler, body); };
}

std::function<void()> Entries::Command(std::function<void()> body) {
  return [this, body = std::move(body)] { Take(Work::Command, body); };
}

std::function<void()> Entries::BoxHandler(CheckBox& box, std::function<void()> body) {
  return [this, &box, body = std::move(body)] {
    if (!host_.Going.LetStart(Work::Handler)) box.Value = !box.Value;
    Take(Work::Handler, body);
  };
}

}  // namespace brelwin
