#include "qt/ports/line_output.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

#include "base/text.h"
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

// Every line comes whole and in order; the ones that do not come are counted in their place.
TEST(LineOutput, WhatIsKeptForASlowReaderIsBoundedAndWhatIsDroppedIsTold) {
  constexpr int Lines = 5000;
  Pipe pipe;
  LineOutput output(pipe.WriteEnd(), 50'000);
  QtEventQueue queue;
  std::string read;
  for (int line = 0; line < Lines; ++line) {
    output.Write(std::to_string(line) + std::string(700, '.'));  // some are begun and not ended
    if (line % 1000 == 999) read += pipe.Read();
  }
  while (!read.ends_with(std::to_string(Lines - 1) + std::string(700, '.') + "\n")) {
    queue.WaitForEvents(Milliseconds(10));
    read += pipe.Read();
  }
  int next = 0;
  int told = 0;
  for (const auto line : SplitLines(read)) {
    const auto number = std::atoi(std::string(line.substr(line.find_last_of(' ') + 1)).c_str());
    if (line.starts_with("(lines missing here")) {
      next += number;
      ++told;
    } else {
      EXPECT_EQ(line, std::to_string(next++) + std::string(700, '.'));
    }
  }
  EXPECT_EQ(next, Lines);
  EXPECT_GT(told, 1);
}

TEST(LineOutput, WhatStillWaitsAtTheEndIsGivenTimeToBeTaken) {
  Pipe pipe;
  const std::string text(300'000, 'x');
  std::string read;
  std::thread reader;
  {
    LineOutput output(pipe.WriteEnd());
    output.Write(text);
    reader = std::thread([&] {
      while (read.size() <= text.size() && ::usleep(1000) == 0) read += pipe.Read();
    });
  }
  reader.join();
  EXPECT_EQ(read, text + "\n");
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
