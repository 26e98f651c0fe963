// Lets events happen until something has.
#pragma once

#include <QElapsedTimer>
#include <functional>

#include "qt/ports/qt_event_queue.h"

namespace brelwin::test {

// Long enough for any machine; a test that waits this long has failed.
constexpr Milliseconds LongestWait{20000};

inline bool WaitUntil(QtEventQueue& queue, const std::function<bool()>& condition) {
  QElapsedTimer watch;
  for (watch.start(); !condition() && watch.elapsed() < LongestWait.count();)
    queue.WaitForEvents(Milliseconds(50));
  return condition();
}

}  // namespace brelwin::test
