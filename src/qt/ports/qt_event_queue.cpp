#include "qt/ports/qt_event_queue.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace brelwin {
namespace {

// Qt's timers count milliseconds in an int.
Milliseconds Representable(Milliseconds delay) {
  constexpr Milliseconds Longest{std::numeric_limits<int>::max()};
  return std::clamp(delay, Milliseconds::zero(), Longest);
}

void Start(QTimer& timer, Milliseconds delay) {
  timer.setSingleShot(true);
  timer.setTimerType(Qt::PreciseTimer);  // others may fire before their time
  timer.start(Representable(delay));
}

}  // namespace

void QtEventQueue::DoEvents() {
  QCoreApplication::processEvents();
}

void QtEventQueue::WaitForEvents(Milliseconds atMost) {
  auto* dispatcher = QAbstractEventDispatcher::instance();
  if (dispatcher->processEvents(QEventLoop::AllEvents)) return;
  QTimer limit;
  Start(limit, atMost);
  dispatcher->processEvents(QEventLoop::WaitForMoreEvents);
}

TimerHandle QtEventQueue::CallAfter(Milliseconds delay, std::function<void()> function) {
  auto timer = std::make_shared<QTimer>();
  timer->callOnTimeout(std::move(function));
  Start(*timer, delay);
  return TimerHandle(std::move(timer));
}

void QtEventQueue::Quit() {
  quit_ = true;
  QCoreApplication::exit();  // quit() would ask the windows first
}

void QtEventQueue::Run() {
  if (!quit_) QCoreApplication::exec();
}

}  // namespace brelwin
