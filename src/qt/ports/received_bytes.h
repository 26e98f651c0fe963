// What the system itself has received for us. The HTTP client tells of an answer only when its head is
// complete, and of a compressed body only when something has come out of it; the system counts every byte.
#pragma once

#include <cstdint>

namespace brelwin {

// How many bytes this process's open TCP connections to the port have received so far, of whatever they
// carry; 0 where the system does not tell.
std::uint64_t ReceivedBytes(std::uint16_t remotePort);

}  // namespace brelwin
