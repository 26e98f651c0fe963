#include "qt/ports/quit_signals.h"

#include <gtest/gtest.h>

#include <csignal>

#include "qt/ports/qt_event_queue.h"

namespace brelwin {
namespace {

TEST(QuitSignals, EverySignalIsToldFromTheQueueAlsoWhenInterruptsWereIgnored) {
  std::signal(SIGINT, SIG_IGN);
  QtEventQueue queue;
  int asked = 0;
  {
    const QuitSignals quitSignals([&] { ++asked; });
    for (const int signal : {SIGINT, SIGTERM, SIGINT}) {
      std::raise(signal);
      const int before = asked;
      for (int wait = 0; wait < 200 && asked == before; ++wait) queue.WaitForEvents(Milliseconds(50));
    }
  }
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

TEST(QuitSignals, ATerminalThatMayGoIsNoReasonToQuit) {
  std::signal(SIGHUP, SIG_IGN);
  const QuitSignals quitSignals([] { FAIL(); });
  std::raise(SIGHUP);
  QtEventQueue().DoEvents();
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

}  // namespace
}  // namespace brelwin
