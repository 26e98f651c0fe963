#include "qt/ports/qt_event_queue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <memory>
#include <vector>

#include "wait_until.h"

namespace brelwin {
namespace {

using std::chrono::milliseconds;

void WaitUntilTrue(QtEventQueue& queue, const bool& condition) {
  test::WaitUntil(queue, [&] { return condition; });
}

TEST(QtEventQueue, CallsInTheOrderOfTheirTimesAndOnlyOnceUnlessItsHandleEnds) {
  QtEventQueue queue;
  std::vector<int> calls;
  bool done = false;
  const auto late = queue.CallAfter(milliseconds(30), [&] { calls.push_back(2); });
  const auto early = queue.CallAfter(milliseconds(0), [&] { calls.push_back(1); });
  auto cancelled = queue.CallAfter(milliseconds(0), [&] { calls.push_back(3); });
  cancelled = TimerHandle();
  const auto last = queue.CallAfter(milliseconds(60), [&] { done = true; });
  WaitUntilTrue(queue, done);
  EXPECT_EQ(calls, (std::vector<int>{1, 2}));
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

TEST(QtEventQueue, ADelayBeyondQtsRangeIsNotAnEarlyCall) {
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
  queue.WaitForEvents(test::LongestWait);
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

}  // namespace
}  // namespace brelwin
