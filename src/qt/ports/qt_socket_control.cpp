#include "qt/ports/qt_socket_control.h"

#include <QPointer>
#include <utility>

#include "qt/ports/qt_text.h"

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace brelwin {
namespace {

// What is not taken beyond this waits in the peer, for whom it is no more than a slow reader.
constexpr qint64 MostUntaken = qint64{256} * 1024;

// A peer that vanished without a word is found within a minute and a half.
void KeepAlive(QTcpSocket& socket) {
  socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
#ifdef Q_OS_LINUX
  const auto set = [descriptor = static_cast<int>(socket.socketDescriptor())](int option, int value) {
    setsockopt(descriptor, IPPROTO_TCP, option, &value, sizeof value);
  };
  set(TCP_KEEPIDLE, 60);   // seconds of silence before the first probe
  set(TCP_KEEPINTVL, 10);  // seconds between probes
  set(TCP_KEEPCNT, 3);
#endif
}

// The event may end the socket that raises it, and with it the function that is being called.
template <class... Parameters, class... Arguments>
void Raise(const std::function<void(Parameters...)>& event, Arguments&&... arguments) {
  const auto function = event;
  if (function) function(std::forward<Arguments>(arguments)...);
}

}  // namespace

void QtSocketControl::Connect(std::string_view host, std::int32_t port) {
  if (state_ != SocketState::Closed) return;
  state_ = SocketState::Connecting;
  source_ = ToQString(host) + u':' + QString::number(port);
  race_ = std::make_unique<QtAddressRace>(
      host, port,
      QtAddressRace::Outcome{[this](SocketPointer socket) { Connected(std::move(socket)); },
                             [this](const SocketError& error) { Fail(error); }});
}

void QtSocketControl::Close() {
  race_.reset();
  socket_.reset();
  remainder_.clear();
  state_ = SocketState::Closed;
}

void QtSocketControl::Send(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string QtSocketControl::GetData() {
  if (socket_ == nullptr) return std::exchange(remainder_, {});
  return socket_->readAll().toStdString();
}

void QtSocketControl::Connected(SocketPointer socket) {
  race_.reset();
  socket_ = std::move(socket);
  KeepAlive(*socket_);
  socket_->setReadBufferSize(MostUntaken);
  connect(socket_.get(), &QTcpSocket::readyRead, this, [this] { Arrived(); });
  connect(socket_.get(), &QTcpSocket::bytesWritten, this, [this](qint64 bytes) { Written(bytes); });
  connect(socket_.get(), &QTcpSocket::disconnected, this, [this] { Ended(); });
  state_ = SocketState::Connected;
  Raise(Events.Connect);
}

void QtSocketControl::Fail(const SocketError& error) {
  race_.reset();
  socket_.reset();
  state_ = SocketState::Error;
  Raise(Events.Error, error);
}

void QtSocketControl::Arrived() {
  const auto bytes = socket_->bytesAvailable();
  if (bytes > 0) Raise(Events.DataArrival, static_cast<std::size_t>(bytes));
}

void QtSocketControl::Written(qint64 bytes) {
  const QPointer<QtSocketControl> self = this;
  const auto remaining = static_cast<std::size_t>(socket_->bytesToWrite());
  Raise(Events.SendProgress, static_cast<std::size_t>(bytes), remaining);
  if (self && state_ == SocketState::Connected && remaining == 0) Raise(Events.SendComplete);
}

// Both ends of a connection, closed by the peer and broken, come this way.
void QtSocketControl::Ended() {
  const QPointer<QtSocketControl> self = this;
  Arrived();
  if (!self || state_ != SocketState::Connected) return;
  remainder_ = GetData();
  if (socket_->error() != QAbstractSocket::RemoteHostClosedError) {
    Fail(DescribeSocketError(socket_->error(), socket_->errorString(), source_));
    return;
  }
  socket_.reset();
  state_ = SocketState::Closing;
  Raise(Events.Close);
}

}  // namespace brelwin
