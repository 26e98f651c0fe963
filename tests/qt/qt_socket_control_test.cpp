#include "qt/ports/qt_socket_control.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <memory>
#include <vector>

#include "wait_until.h"

namespace brelwin {
namespace {

using std::chrono::milliseconds;

// A socket that writes down its events, and a server that it can talk to.
class QtSocket : public ::testing::Test {
 protected:
  QtSocket() {
    server_.listen(QHostAddress::LocalHost);
    WriteDownEvents();
  }

  void WriteDownEvents() {
    auto& events = socket_->Events;
    events.Connect = [this] { Note("connect"); };
    events.DataArrival = [this](std::size_t) { received_ += socket_->GetData(); };
    events.Close = [this] { Note("close"); };
    events.Error = [this](const SocketError& error) { Note("error " + std::to_string(error.Number)); };
    events.SendProgress = [this](std::size_t sent, std::size_t remaining) {
      Note("sent " + std::to_string(sent) + " of " + std::to_string(sent + remaining));
    };
    events.SendComplete = [this] { Note("complete"); };
  }

  void Note(const std::string& event) {
    told_.push_back(event + " in state " + std::to_string(static_cast<int>(socket_->State())));
  }

  bool WaitFor(const std::function<bool()>& condition) { return test::WaitUntil(queue_, condition); }

  bool WaitForEvent(std::string_view event) {
    return WaitFor([&] { return !told_.empty() && told_.back().starts_with(event); });
  }

  // The server's end of the connection; null when there is none.
  QTcpSocket* Connect(const std::string& host = "127.0.0.1") {
    socket_->Connect(host, server_.serverPort());
    EXPECT_TRUE(WaitForEvent("connect"));
    EXPECT_TRUE(WaitFor([this] { return server_.hasPendingConnections(); }));
    return server_.nextPendingConnection();
  }

  QtEventQueue queue_;
  QTcpServer server_;
  QtSocketControls sockets_;
  std::unique_ptr<SocketControl> socket_ = sockets_.Create();
  std::vector<std::string> told_;
  std::string received_;
};

TEST_F(QtSocket, TellsOfAConversationInOrderAndStaysClosingUntilItIsClosed) {
  auto* peer = Connect();
  ASSERT_NE(peer, nullptr);
  peer->write("call: ");
  EXPECT_TRUE(WaitFor([&] { return received_ == "call: "; }));
  socket_->Send("Q0ZZ\r\n");
  EXPECT_TRUE(WaitFor([&] { return peer->bytesAvailable() == 6; }));
  peer->write("the last line\r\n");
  peer->disconnectFromHost();
  EXPECT_TRUE(WaitForEvent("close"));
  EXPECT_EQ(received_, "call: the last line\r\n");
  EXPECT_EQ(told_, (std::vector<std::string>{"connect in state 7", "sent 6 of 6 in state 7",
                                             "complete in state 7", "close in state 8"}));
  socket_->Connect("127.0.0.1", server_.serverPort());
  EXPECT_EQ(socket_->State(), SocketState::Closing);
  socket_->Close();
  EXPECT_EQ(socket_->State(), SocketState::Closed);
  EXPECT_NE(Connect(), nullptr);
}

TEST_F(QtSocket, TellsOfAConnectionThatIsCut) {
  auto* peer = Connect();
  ASSERT_NE(peer, nullptr);
  peer->write("half a li");
  EXPECT_TRUE(WaitFor([&] { return received_ == "half a li"; }));
  const linger reset{1, 0};
  setsockopt(static_cast<int>(peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &reset, sizeof reset);
  peer->abort();
  EXPECT_TRUE(WaitForEvent("close in state 8"));
}

TEST_F(QtSocket, WhatIsNotTakenMakesThePeerWaitAndIsThereAfterItsEnd) {
  auto* peer = Connect();
  socket_->Events.DataArrival = {};
  const QByteArray block(qsizetype{16} * 1024 * 1024, 'x');
  peer->write(block);
  int looks = 0;
  EXPECT_TRUE(WaitFor([&] { return ++looks > 6; }));
  EXPECT_GT(peer->bytesToWrite(), block.size() / 4);
  std::size_t taken = socket_->GetData().size();
  EXPECT_LT(taken, 1024U * 1024U);
  socket_->Events.DataArrival = [&](std::size_t) {
    if (taken + 100'000 < static_cast<std::size_t>(block.size())) taken += socket_->GetData().size();
  };
  peer->disconnectFromHost();
  EXPECT_TRUE(WaitForEvent("close"));
  EXPECT_EQ(taken + socket_->GetData().size(), static_cast<std::size_t>(block.size()));
}

TEST_F(QtSocket, TellsWhyThereIsNoConnection) {
  const auto port = server_.serverPort();
  server_.close();
  socket_->Connect("127.0.0.1", port);
  EXPECT_EQ(socket_->State(), SocketState::Connecting);
  EXPECT_TRUE(told_.empty()) << "nothing is told within Connect";
  EXPECT_TRUE(WaitForEvent("error 10061 in state 9"));
  socket_->Close();
  socket_->Connect("no such host", port);
  EXPECT_TRUE(told_.size() == 1) << "the name is resolved in the background";
  EXPECT_TRUE(WaitForEvent("error 11001 in state 9"));
}

TEST_F(QtSocket, ClosingTellsNothingWhateverItWasDoing) {
  auto* peer = Connect();
  ASSERT_NE(peer, nullptr);
  peer->write("too late");
  socket_->Close();
  for (const auto* host : {"127.0.0.1", "localhost"}) {
    socket_->Connect(host, server_.serverPort());
    socket_->Close();
  }
  socket_->Send("nobody hears this");
  for (int i = 0; i < 5; ++i) queue_.WaitForEvents(milliseconds(20));
  EXPECT_EQ(told_.size(), 1U);
  EXPECT_EQ(received_, "");
}

TEST_F(QtSocket, MayEndWithinItsOwnEvents) {
  for (const auto* when : {"connect", "data", "close", "error", "sent"}) {
    SCOPED_TRACE(when);
    socket_ = sockets_.Create();
    bool ended = false;
    const auto end = [&](const std::string& event) {
      if (event != when) return;
      socket_.reset();
      ended = true;
    };
    auto& events = socket_->Events;
    events.Connect = [&] {
      socket_->Send("x");
      end("connect");
    };
    events.DataArrival = [&](std::size_t) { end("data"); };
    events.Close = [&] { end("close"); };
    events.Error = [&](const SocketError&) { end("error"); };
    events.SendProgress = [&](std::size_t, std::size_t) { end("sent"); };
    const bool refused = std::string_view(when) == "error";
    socket_->Connect("127.0.0.1", refused ? 1 : server_.serverPort());
    EXPECT_TRUE(WaitFor([&] { return ended || server_.hasPendingConnections(); }));
    if (auto* peer = server_.nextPendingConnection()) {
      peer->write("x");
      peer->disconnectFromHost();
    }
    EXPECT_TRUE(WaitFor([&] { return ended; }));
  }
}

}  // namespace
}  // namespace brelwin
