// A request in Qt's terms: what of it goes to an address, through which proxy, and whether it may go there.
#pragma once

#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QUrl>
#include <optional>
#include <string>

#include "platform/http.h"
#include "platform/proxy_settings.h"

namespace brelwin {

// Whether it begins with http:// or https:// and the name of a server.
bool IsWebAddress(const QUrl& url);

// The proxy in Qt's terms. No proxy at all when there is none: Qt is not to choose one by itself.
QNetworkProxy QtProxy(const std::optional<Proxy>& proxy);

// The head of the request to the address.
QNetworkRequest QtRequest(const HttpRequest& request, const QUrl& url, const QNetworkProxy& proxy);

// Makes the request what it is behind a redirect of that status; gives the reason why it may not go there, in
// words, empty when it may.
std::string FollowRedirect(HttpRequest& request, int status, const QUrl& from, const QUrl& to);

}  // namespace brelwin
