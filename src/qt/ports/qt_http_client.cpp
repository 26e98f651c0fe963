#include "qt/ports/qt_http_client.h"

#include "qt/ports/qt_http_transfer.h"

namespace brelwin {

std::unique_ptr<HttpTransfer> QtHttpClient::Start(const HttpRequest& request) {
  return std::make_unique<QtHttpTransfer>(request, proxies_);
}

}  // namespace brelwin
