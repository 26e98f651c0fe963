#include "qt/ports/qt_internet_session.h"

#include <QNetworkProxy>

#include "qt/ports/qt_page_request.h"
#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

QNetworkProxy ToolkitProxy(const std::optional<Proxy>& proxy) {
  if (!proxy) return QNetworkProxy(QNetworkProxy::NoProxy);
  return QNetworkProxy(QNetworkProxy::HttpProxy, ToQString(proxy->Host), proxy->Port, ToQString(proxy->User),
                       ToQString(proxy->Password));
}

}  // namespace

std::unique_ptr<PageRequest> QtInternetSession::OpenUrl(const PageQuery& query) {
  return std::make_unique<QtPageRequest>(query, ToolkitProxy(ProxyForUrl(proxies_, query.Url)));
}

}  // namespace brelwin
