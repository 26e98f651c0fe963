// Sockets over Qt. The stream never goes through a proxy.
#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <string>

#include "platform/socket_control.h"
#include "qt/ports/qt_address_race.h"

namespace brelwin {

class QtSocketControl final : public QObject, public SocketControl {
 public:
  SocketState State() const override { return state_; }
  void Connect(std::string_view host, std::int32_t port) override;
  void Close() override;
  void Send(std::string_view bytes) override;
  std::string GetData() override;

 private:
  void Connected(SocketPointer socket);
  void Fail(const SocketError& error);
  void Arrived();
  void Written(qint64 bytes);
  void Ended();

  SocketState state_ = SocketState::Closed;
  QString source_;
  std::unique_ptr<QtAddressRace> race_;  // while connecting
  SocketPointer socket_;                 // while connected
  std::string remainder_;                // what was not taken before the connection ended
};

// To be used after the application object was made.
class QtSocketControls final : public SocketControls {
 public:
  std::unique_ptr<SocketControl> Create() override { return std::make_unique<QtSocketControl>(); }
};

}  // namespace brelwin
