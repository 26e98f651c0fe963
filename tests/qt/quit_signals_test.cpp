#include "qt/ports/quit_signals.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <csignal>
#include <string>

#include "wait_until.h"

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
      test::WaitUntil(queue, [&] { return asked != before; });
    }
  }
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

std::string SignalsHeldBackInAChild() {
  QProcess child;
  child.start("grep", {"SigBlk", "/proc/self/status"});
  child.waitForFinished();
  return child.readAllStandardOutput().toStdString();
}

TEST(QuitSignals, WhatComesTooEarlyOrTooLateEndsNothing) {
  const auto heldUsually = SignalsHeldBackInAChild();
  sigset_t usual;
  ::pthread_sigmask(SIG_SETMASK, nullptr, &usual);
  HoldQuitSignals();
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::raise(signal);
  QtEventQueue queue;
  int asked = 0;
  {
    const QuitSignals quitSignals([&] { ++asked; });
    test::WaitUntil(queue, [&] { return asked != 0; });
    EXPECT_EQ(SignalsHeldBackInAChild(), heldUsually);
  }
  EXPECT_EQ(asked, 1);
  std::raise(SIGTERM);  // the end of the program is near
  std::signal(SIGTERM, SIG_IGN);
  ::pthread_sigmask(SIG_SETMASK, &usual, nullptr);
  std::signal(SIGTERM, SIG_DFL);
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
