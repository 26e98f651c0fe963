// Reading pages with the toolkit's HTTP client. Every request has a client of its own: nothing is kept from
// one page to the next, neither connections that may have died meanwhile nor memory.
#pragma once

#include "platform/internet_session.h"
#include "platform/proxy_settings.h"

namespace brelwin {

class QtInternetSession final : public InternetSession {
 public:
  explicit QtInternetSession(ProxySettings proxies) : proxies_(std::move(proxies)) {}

  std::unique_ptr<PageRequest> OpenUrl(const PageQuery& query) override;

 private:
  const ProxySettings proxies_;
};

}  // namespace brelwin
