// One TCP connection as a client, without blocking: what happens on it is told through events, which the
// event queue runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace brelwin {

// The numbers are those that log lines show and that operators know from old.
enum class SocketState : std::uint8_t {
  Closed = 0,
  Connecting = 6,  // the name is being resolved or an address is being tried
  Connected = 7,
  Closing = 8,  // the peer has closed; it stays so until Close is called
  Error = 9,    // the same, after a failure
};

struct SocketError {
  std::int32_t Number = 0;  // of the Windows socket library, such as 10061 for a refused connection
  std::string Description;
  std::string Source;  // where it happened: host and port
};

// What a socket tells. Each may be empty. None is called from within a call of the socket's own functions.
struct SocketEvents {
  std::function<void()> Connect;
  std::function<void(std::size_t bytesTotal)> DataArrival;  // all that waits to be taken
  std::function<void()> Close;                              // by the peer
  std::function<void(const SocketError& error)> Error;
  std::function<void()> SendComplete;  // everything handed to Send is on its way
  std::function<void(std::size_t bytesSent, std::size_t bytesRemaining)> SendProgress;
};

// Its end, also within one of its events, closes the connection.
class SocketControl {
 public:
  SocketControl() = default;
  SocketControl(const SocketControl&) = delete;
  SocketControl& operator=(const SocketControl&) = delete;
  virtual ~SocketControl() = default;

  SocketEvents Events;  // set by the owner

  virtual SocketState State() const = 0;

  // Starts connecting a closed socket to a host name or address and a port from 1 to 65535; in any other
  // state nothing is done. Connect or Error follows. Every address of the name is tried, so that one that
  // answers is found beside others that do not. How long to wait is the caller's business.
  virtual void Connect(std::string_view host, std::int32_t port) = 0;

  // Ends the connection or the attempt at once and forgets what was not taken. Raises no event.
  virtual void Close() = 0;

  // Sends the bytes on a connected socket; in any other state nothing is done.
  virtual void Send(std::string_view bytes) = 0;

  // Takes what has arrived and was not taken, also after the peer has closed or failed: Close and Error are
  // raised after everything that came before them was told by DataArrival. Who does not take it makes the
  // peer wait.
  virtual std::string GetData() = 0;
};

class SocketControls {
 public:
  SocketControls() = default;
  SocketControls(const SocketControls&) = delete;
  SocketControls& operator=(const SocketControls&) = delete;
  virtual ~SocketControls() = default;

  // A new, closed socket.
  virtual std::unique_ptr<SocketControl> Create() = 0;
};

}  // namespace brelwin
