#include "qt/ports/toolkit_proxy.h"

#include "qt/ports/qt_text.h"

namespace brelwin {

QNetworkProxy ToolkitProxy(const std::optional<Proxy>& proxy) {
  if (!proxy) return QNetworkProxy(QNetworkProxy::NoProxy);
  return QNetworkProxy(QNetworkProxy::HttpProxy, ToQString(proxy->Host), proxy->Port, ToQString(proxy->User),
                       ToQString(proxy->Password));
}

}  // namespace brelwin
