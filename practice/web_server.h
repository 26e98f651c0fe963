// The web side of the practice network, on the loopback interface only.
#pragma once

#include <memory>

#include "site.h"

namespace practice {

class WebServer {
 public:
  // The site must outlive the server.
  explicit WebServer(Site& site);
  ~WebServer();
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  // Takes the port, or a free one for 0. Returns the port, or 0 when it is not to be had.
  int Bind(int port);

  // Serves until Stop is called from another thread. False when the port went away.
  bool Serve();

  // Returns when Serve, which must have been called or be about to be, has ended.
  void Stop();

 private:
  struct Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace practice
