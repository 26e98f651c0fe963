#include "qt/ports/qt_address_race.h"

#include <gtest/gtest.h>

#include <QTcpServer>
#include <memory>
#include <vector>

#include "wait_until.h"

namespace brelwin {
namespace {

const QHostAddress Living("127.0.0.1");
const QHostAddress Refusing("127.0.0.2");
const QHostAddress RefusingNewKind("::1");
const QHostAddress Unreachable("255.255.255.255");
const QHostAddress Silent("127.0.0.3");

// A listener whose queue is full lets every further attempt wait for good, as a dead route does.
class SilentListener {
 public:
  explicit SilentListener(quint16 port) {
    server_.setListenBacklogSize(0);
    server_.listen(Silent, port);
    server_.pauseAccepting();
    do {
      fillers_.push_back(std::make_unique<QTcpSocket>());
      fillers_.back()->connectToHost(Silent, port);
    } while (fillers_.back()->waitForConnected(100) && fillers_.size() < 20);
  }

  bool IsSilent() const { return fillers_.back()->error() == QAbstractSocket::SocketTimeoutError; }

 private:
  QTcpServer server_;
  std::vector<std::unique_ptr<QTcpSocket>> fillers_;
};

class AddressRace : public ::testing::Test {
 protected:
  AddressRace() { server_.listen(Living); }

  // The address that won; "error" and its number when none did.
  std::string Winner(const QList<QHostAddress>& addresses) {
    std::string winner;
    QtAddressRace race(
        addresses, server_.serverPort(),
        {[&](const SocketPointer& socket) { winner = socket->peerAddress().toString().toStdString(); },
         [&](const SocketError& error) { winner = "error " + std::to_string(error.Number); }});
    test::WaitUntil(queue_, [&] { return !winner.empty(); });
    return winner;
  }

  QtEventQueue queue_;
  QTcpServer server_;
};

TEST_F(AddressRace, TheAddressThatAnswersWinsBesideDeadOnes) {
  EXPECT_EQ(Winner({Living}), "127.0.0.1");
  EXPECT_EQ(Winner({RefusingNewKind, Living}), "127.0.0.1");
  EXPECT_EQ(Winner({Unreachable, Refusing, Living}), "127.0.0.1");
  EXPECT_EQ(Winner({Refusing, Refusing}), "error 10061");
}

TEST_F(AddressRace, AnAddressThatNeverAnswersHoldsNobodyUp) {
  const SilentListener silent(server_.serverPort());
  ASSERT_TRUE(silent.IsSilent());
  EXPECT_EQ(Winner({Silent, Living}), "127.0.0.1");
  EXPECT_EQ(Winner({Silent, Silent, Refusing, Living}), "127.0.0.1");
}

}  // namespace
}  // namespace brelwin
