#include "qt/ports/line_output.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

#include "qt/ports/qt_event_queue.h"

namespace brelwin {
namespace {

class Pipe {
 public:
  Pipe() { EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0); }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    CloseReadEnd();
    ::close(ends_[1]);
  }

  int WriteEnd() const { return ends_[1]; }

  void CloseReadEnd() {
    if (ends_[0] >= 0) ::close(ends_[0]);
    ends_[0] = -1;
  }

  // What has been written so far.
  std::string Read() {
    ::fcntl(ends_[0], F_SETFL, O_NONBLOCK);
    std::string text;
    std::array<char, 4096> piece{};
    for (ssize_t got = 0; (got = ::read(ends_[0], piece.data(), piece.size())) > 0;)
      text.append(piece.data(), static_cast<std::size_t>(got));
    return text;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
};

TEST(LineOutput, EveryLineIsOutAtOnce) {
  Pipe pipe;
  LineOutput output(pipe.WriteEnd());
  output.Write("one");
  EXPECT_EQ(pipe.Read(), "one\n");
  output.Write(std::string(2000, 'x'));  // more than one safe write
  EXPECT_EQ(pipe.Read(), std::string(2000, 'x') + "\n");
}

// A reader that has stopped reading must not stop the writer; when it reads on, the lines come in order.
TEST(LineOutput, AReaderThatPausesHoldsNobodyUp) {
  Pipe pipe;
  LineOutput output(pipe.WriteEnd());
  std::string written;
  for (int line = 0; line < 2000; ++line) {
    const auto text = std::to_string(line) + std::string(100, '.');
    output.Write(text);
    written += text + "\n";
  }
  QtEventQueue queue;
  std::string read;
  for (int round = 0; round < 1000 && read.size() < written.size(); ++round) {
    read += pipe.Read();
    queue.WaitForEvents(Milliseconds(10));
  }
  EXPECT_EQ(read, written);
}

TEST(LineOutput, WhatIsKeptForAPausedReaderIsBoundedAndStaysWholeLines) {
  Pipe pipe;
  LineOutput output(pipe.WriteEnd());
  const std::string line(999, 'x');
  for (int count = 0; count < 5000; ++count) output.Write(line);
  output.Write("the last one");
  QtEventQueue queue;
  std::string read;
  while (!read.ends_with("the last one\n")) {
    read += pipe.Read();
    queue.WaitForEvents(Milliseconds(10));
  }
  EXPECT_LT(read.size(), 2u * 1024 * 1024);
}

TEST(LineOutput, AReaderThatIsGoneIsForgotten) {
  std::signal(SIGPIPE, SIG_IGN);
  Pipe pipe;
  LineOutput output(pipe.WriteEnd());
  pipe.CloseReadEnd();
  for (int count = 0; count < 100000; ++count) output.Write("nobody reads this");
  SUCCEED();
}

}  // namespace
}  // namespace brelwin
