#include "qt/ports/qt_event_queue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>
#include <vector>

namespace brelwin {
namespace {

using std::chrono::milliseconds;

// Long enough for any machine; a test that waits this long has failed.
constexpr milliseconds Forever{20000};

void WaitUntilTrue(QtEventQueue& queue, const bool& condition) {
  QElapsedTimer watch;
  for (watch.start(); !condition && watch.elapsed() < Forever.count();) queue.WaitForEvents(milliseconds(50));
}

TEST(QtEventQueue, CallsInTheOrderOfTheirTimesAndOnlyOnce) {
  QtEventQueue queue;
  std::vector<int> calls;
  bool done = false;
  const auto late = queue.CallAfter(milliseconds(30), [&] { calls.push_back(2); });
  const auto early = queue.CallAfter(milliseconds(0), [&] { calls.push_back(1); });
  const auto last = queue.CallAfter(milliseconds(60), [&] { done = true; });
  WaitUntilTrue(queue, done);
  EXPECT_EQ(calls, (std::vector<int>{1, 2}));
}

TEST(QtEventQueue, AnEndedHandleCancels) {
  QtEventQueue queue;
  bool called = false;
  bool done = false;
  auto cancelled = queue.CallAfter(milliseconds(0), [&] { called = true; });
  cancelled = TimerHandle();
  const auto last = queue.CallAfter(milliseconds(10), [&] { done = true; });
  WaitUntilTrue(queue, done);
  EXPECT_FALSE(called);
}

TEST(QtEventQueue, AFunctionMayReplaceItsOwnTimer) {
  QtEventQueue queue;
  bool done = false;
  auto handle = std::make_unique<TimerHandle>();
  const auto held = std::make_shared<int>(7);
  *handle = queue.CallAfter(milliseconds(0), [&, held] {
    *handle = queue.CallAfter(milliseconds(0), [&] { done = true; });
    EXPECT_EQ(*held, 7);  // what the function holds outlives its timer
  });
  WaitUntilTrue(queue, done);
  EXPECT_TRUE(done);
}

TEST(QtEventQueue, ADelayBeyondTheToolkitsRangeIsNotAnEarlyCall) {
  QtEventQueue queue;
  bool called = false;
  const auto handle = queue.CallAfter(std::chrono::hours(24 * 365), [&] { called = true; });
  queue.DoEvents();
  queue.WaitForEvents(milliseconds(1));
  EXPECT_FALSE(called);
}

// What was posted counts as something that happened: the wait must not sleep on it.
TEST(QtEventQueue, AWaitEndsWithWhatIsPosted) {
  QtEventQueue queue;
  queue.DoEvents();
  bool happened = false;
  QMetaObject::invokeMethod(
      qApp, [&] { happened = true; }, Qt::QueuedConnection);
  queue.WaitForEvents(Forever);
  EXPECT_TRUE(happened);
}

TEST(QtEventQueue, QuitEndsTheOutermostLoopFromInsideAWait) {
  QtEventQueue queue;
  bool afterQuit = false;
  const auto start = queue.CallAfter(milliseconds(0), [&] {
    bool quit = false;
    const auto asked = queue.CallAfter(milliseconds(0), [&] {
      queue.Quit();
      quit = true;
    });
    WaitUntilTrue(queue, quit);
    afterQuit = true;
  });
  queue.Run();
  EXPECT_TRUE(afterQuit);
}

TEST(QtEventQueue, QuitBeforeTheLoopEndsItAtOnce) {
  QtEventQueue queue;
  queue.Quit();
  queue.Run();
}

}  // namespace
}  // namespace brelwin
