// The proxy that the environment asks for, in the toolkit's terms.
#pragma once

#include <QNetworkProxy>
#include <optional>

#include "platform/proxy_settings.h"

namespace brelwin {

// No proxy at all when there is none: the toolkit is not to choose one by itself.
QNetworkProxy ToolkitProxy(const std::optional<Proxy>& proxy);

}  // namespace brelwin
