// Preloaded into a process, makes every name take a minute to resolve, as with a name server that is gone.
// Numeric addresses are not names and resolve at once.
#include <dlfcn.h>
#include <netdb.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

using Resolver = int (*)(const char*, const char*, const addrinfo*, addrinfo**);

extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  if (node != nullptr && std::strpbrk(node, "ghijklmnopqrstuvwxyz") != nullptr) {
    constexpr char notice[] = "resolving\n";
    if (write(STDERR_FILENO, notice, sizeof notice - 1) < 0) return EAI_SYSTEM;
    sleep(60);
  }
  return reinterpret_cast<Resolver>(dlsym(RTLD_NEXT, "getaddrinfo"))(node, service, hints, result);
}
