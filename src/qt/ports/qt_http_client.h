// Pages and forms with Qt's HTTP client. Every request, and every redirect, has a client of its own: nothing
// is kept from one to the next, neither connections that may have died meanwhile nor memory.
#pragma once

#include <utility>

#include "platform/http.h"
#include "platform/proxy_settings.h"

namespace brelwin {

class QtHttpClient final : public HttpClient {
 public:
  explicit QtHttpClient(ProxySettings proxies) : proxies_(std::move(proxies)) {}

  std::unique_ptr<HttpTransfer> Start(const HttpRequest& request) override;

 private:
  const ProxySettings proxies_;
};

}  // namespace brelwin
