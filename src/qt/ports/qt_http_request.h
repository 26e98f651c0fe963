// A request in Qt's terms: what of it goes to an address, through which proxy, whether it may go there, and
// a body that is never sent twice.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QUrl>
#include <functional>
#include <optional>
#include <string>

#include "platform/http.h"
#include "platform/proxy_settings.h"

namespace brelwin {

// Can be read once, from front to back. Qt's HTTP client sends a request again when its connection closes
// before an answer, though the server may have acted on it; it cannot with a body like this.
class UnrepeatableBody final : public QIODevice {
 public:
  // `mayLeave` is asked once, when the first byte is wanted; after a no there are none, and the reader waits.
  UnrepeatableBody(QByteArray bytes, std::function<bool()> mayLeave, QObject* parent);

  bool isSequential() const override { return true; }
  bool reset() override { return false; }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 atMost) override;
  qint64 writeData(const char* data, qint64 length) override;

 private:
  const QByteArray bytes_;
  const std::function<bool()> mayLeave_;
  std::optional<bool> leaves_;
  qsizetype position_ = 0;
};

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
