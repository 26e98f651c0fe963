// Sockets by index, loaded and unloaded while the program runs: one that hangs is left for a fresh one.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "platform/socket_control.h"

namespace brelwin {

class WinsockArray {
 public:
  explicit WinsockArray(SocketControls& controls) : controls_(controls) {}

  // A new, closed socket under the index.
  SocketControl& Load(std::int32_t index) { return *(sockets_[index] = controls_.Create()); }

  // Ends the socket and its connection.
  void Unload(std::int32_t index) { sockets_.erase(index); }

  // The loaded socket; std::out_of_range when there is none.
  SocketControl& operator[](std::int32_t index) const { return *sockets_.at(index); }

 private:
  SocketControls& controls_;
  std::map<std::int32_t, std::unique_ptr<SocketControl>> sockets_;
};

}  // namespace brelwin
