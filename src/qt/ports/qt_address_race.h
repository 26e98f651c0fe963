// Connecting to a host that may have several addresses, of which some may be dead (Happy Eyeballs, RFC 8305):
// they are tried beside each other, each a little after the one before, and the first that answers wins.
#pragma once

#include <QHostAddress>
#include <QHostInfo>
#include <QList>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/socket_control.h"

namespace brelwin {

// A socket may end in the middle of one of its own signals, so it is deleted when the event queue next runs.
struct DeleteSocketLater {
  void operator()(QTcpSocket* socket) const;
};
using SocketPointer = std::unique_ptr<QTcpSocket, DeleteSocketLater>;

class QtAddressRace final : public QObject {
 public:
  struct Outcome {
    std::function<void(SocketPointer connected)> Won;
    std::function<void(const SocketError& error)> Lost;  // the last failure, when no address is left
  };

  // Resolves the name in the background and starts. Exactly one outcome is called, from the event queue, and
  // may end the race. The race's end before that gives up without a word.
  QtAddressRace(std::string_view host, std::int32_t port, Outcome outcome);

  // The same for addresses that are known, at least one, best first.
  QtAddressRace(const QList<QHostAddress>& addresses, std::int32_t port, Outcome outcome);
  ~QtAddressRace() override;

  QtAddressRace(const QtAddressRace&) = delete;
  QtAddressRace& operator=(const QtAddressRace&) = delete;

 private:
  void Resolved(const QHostInfo& info);
  void TryNextAddress();
  void Win(QTcpSocket* socket);
  void Fail(QTcpSocket* socket);
  void Lose(const SocketError& error);
  SocketPointer TakeRunner(QTcpSocket* socket);

  QString source_;
  quint16 port_;
  Outcome outcome_;
  QList<QHostAddress> addresses_;  // not tried yet, in the order in which they will be
  std::vector<SocketPointer> runners_;
  QTimer nextTry_;
};

// The failure of a socket in the numbers of SocketError.
SocketError DescribeSocketError(QAbstractSocket::SocketError error, const QString& description,
                                const QString& source);

}  // namespace brelwin
