#include "qt/ports/qt_address_race.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

// An address that answers does so within this time nearly always; a dead one then costs no more than this.
constexpr int BetweenTries = 250;  // milliseconds

// Addresses of the two kinds in turn, beginning with the one that the resolver prefers: when one kind is dead
// as a whole, a living address comes second.
QList<QHostAddress> InTurn(const QList<QHostAddress>& addresses) {
  QList<QHostAddress> first;
  QList<QHostAddress> second;
  for (const auto& address : addresses)
    (address.protocol() == addresses.front().protocol() ? first : second).append(address);
  QList<QHostAddress> inTurn;
  for (qsizetype i = 0; i < std::max(first.size(), second.size()); ++i) {
    if (i < first.size()) inTurn.append(first[i]);
    if (i < second.size()) inTurn.append(second[i]);
  }
  return inTurn;
}

// An address is not looked up: Qt would ask for its name, which takes long where nobody answers.
QList<QHostAddress> AddressIn(const QString& host) {
  const QHostAddress address(host);
  return address.isNull() ? QList<QHostAddress>() : QList{address};
}

std::int32_t NumberOf(QAbstractSocket::SocketError error) {
  switch (error) {
    case QAbstractSocket::ConnectionRefusedError: return 10061;
    case QAbstractSocket::HostNotFoundError: return 11001;
    case QAbstractSocket::SocketTimeoutError: return 10060;
    case QAbstractSocket::NetworkError: return 10065;
    case QAbstractSocket::RemoteHostClosedError: return 10054;
    default: return 10053;
  }
}

}  // namespace

void DeleteSocketLater::operator()(QTcpSocket* socket) const {
  socket->disconnect();
  socket->abort();
  socket->deleteLater();
}

SocketError DescribeSocketError(QAbstractSocket::SocketError error, const QString& description,
                                const QString& source) {
  return {NumberOf(error), description.toStdString(), source.toStdString()};
}

QtAddressRace::QtAddressRace(std::string_view host, std::int32_t port, Outcome outcome)
    : QtAddressRace(AddressIn(ToQString(host)), port, std::move(outcome)) {
  source_ = ToQString(host) + u':' + QString::number(port);
  if (addresses_.isEmpty())
    QHostInfo::lookupHost(ToQString(host), qApp, [race = QPointer(this)](const QHostInfo& info) {
      if (race) race->Resolved(info);
    });
}

QtAddressRace::QtAddressRace(const QList<QHostAddress>& addresses, std::int32_t port, Outcome outcome)
    : port_(static_cast<quint16>(port)), outcome_(std::move(outcome)), addresses_(InTurn(addresses)) {
  nextTry_.setSingleShot(true);
  nextTry_.callOnTimeout([this] { TryNextAddress(); });
  if (!addresses_.isEmpty()) nextTry_.start(0);
}

// A lookup under way goes on and tells nobody: of one that is aborted Qt leaks the receiver.
QtAddressRace::~QtAddressRace() = default;

void QtAddressRace::Resolved(const QHostInfo& info) {
  if (info.addresses().isEmpty()) {
    Lose(DescribeSocketError(QAbstractSocket::HostNotFoundError, info.errorString(), source_));
    return;
  }
  addresses_ = InTurn(info.addresses());
  TryNextAddress();
}

void QtAddressRace::TryNextAddress() {
  if (addresses_.isEmpty()) return;
  auto* socket = runners_.emplace_back(new QTcpSocket).get();
  socket->setProxy(QNetworkProxy::NoProxy);
  connect(socket, &QTcpSocket::connected, this, [this, socket] { Win(socket); });
  // Queued, since some failures are known before connectToHost returns.
  connect(
      socket, &QTcpSocket::errorOccurred, this, [this, socket] { Fail(socket); }, Qt::QueuedConnection);
  nextTry_.start(BetweenTries);
  socket->connectToHost(addresses_.takeFirst(), port_);
}

void QtAddressRace::Win(QTcpSocket* socket) {
  nextTry_.stop();
  auto winner = TakeRunner(socket);
  winner->disconnect(this);
  runners_.clear();
  const auto won = outcome_.Won;
  won(std::move(winner));
}

void QtAddressRace::Fail(QTcpSocket* socket) {
  const auto loser = TakeRunner(socket);
  if (loser == nullptr) return;
  if (!addresses_.isEmpty()) {
    TryNextAddress();
  } else if (runners_.empty()) {
    Lose(DescribeSocketError(loser->error(), loser->errorString(), source_));
  }
}

void QtAddressRace::Lose(const SocketError& error) {
  const auto lost = outcome_.Lost;
  lost(error);
}

SocketPointer QtAddressRace::TakeRunner(QTcpSocket* socket) {
  const auto found = std::find_if(runners_.begin(), runners_.end(),
                                  [socket](const auto& runner) { return runner.get() == socket; });
  if (found == runners_.end()) return {};
  auto runner = std::move(*found);
  runners_.erase(found);
  return runner;
}

}  // namespace brelwin
