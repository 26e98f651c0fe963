#include "qt/ports/received_bytes.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QDir>

namespace brelwin {
namespace {

std::uint16_t RemotePort(int descriptor) {
  sockaddr_in6 address{};  // the port stands at the same place in addresses of both kinds
  socklen_t length = sizeof address;
  if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
  const bool isInternet = address.sin6_family == AF_INET || address.sin6_family == AF_INET6;
  return isInternet ? ntohs(address.sin6_port) : std::uint16_t{0};
}

std::uint64_t BytesOf(int descriptor) {
  tcp_info information{};
  socklen_t length = sizeof information;
  if (::getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &information, &length) != 0) return 0;
  return information.tcpi_bytes_received;
}

}  // namespace

std::uint64_t ReceivedBytes(std::uint16_t remotePort) {
  std::uint64_t bytes = 0;
  for (const auto& name :
       QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)) {
    const int descriptor = name.toInt();
    if (RemotePort(descriptor) == remotePort) bytes += BytesOf(descriptor);
  }
  return bytes;
}

}  // namespace brelwin
