#include "qt/ports/qt_http_request.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "qt/ports/qt_text.h"

namespace brelwin {

UnrepeatableBody::UnrepeatableBody(QByteArray bytes, std::function<bool()> mayLeave, QObject* parent)
    : QIODevice(parent), bytes_(std::move(bytes)), mayLeave_(std::move(mayLeave)) {
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 UnrepeatableBody::bytesAvailable() const {
  return bytes_.size() - position_ + QIODevice::bytesAvailable();
}

qint64 UnrepeatableBody::readData(char* data, qint64 atMost) {
  if (!leaves_) leaves_ = mayLeave_();
  if (!*leaves_) return 0;
  const auto count = std::min<qint64>(atMost, bytes_.size() - position_);
  if (count == 0) return position_ == bytes_.size() ? -1 : 0;
  std::copy_n(bytes_.constData() + position_, count, data);
  position_ += count;
  return count;
}

qint64 UnrepeatableBody::writeData(const char*, qint64) {
  return -1;
}

namespace {

// Redirects are followed by the transfer: Qt would ask twice on a connection that is kept, and would take the
// first address's proxy for all of them.
void SetAttributes(QNetworkRequest& request) {
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setDecompressedSafetyCheckThreshold(-1);  // the request's own limit is the limit
}

// Qt would wait to be asked for a name, and then send the form again. To a proxy of plain HTTP only: with
// HTTPS the line would go through to the server.
void IntroduceToProxy(QNetworkRequest& request, const QNetworkProxy& proxy) {
  if (proxy.user().isEmpty() || request.url().scheme() != "http") return;
  const auto credentials = (proxy.user() + ":" + proxy.password()).toUtf8();
  request.setRawHeader("Proxy-Authorization", "Basic " + credentials.toBase64());
}

void MakeUnrepeatable(QNetworkRequest& request, const HttpRequest& asked, const QNetworkProxy& proxy) {
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
  const auto length = static_cast<qsizetype>(asked.Body.size());
  if (length > 0) request.setHeader(QNetworkRequest::ContentLengthHeader, length);
  IntroduceToProxy(request, proxy);
}

bool LosesEncryption(const QUrl& from, const QUrl& to) {
  return from.scheme() == "https" && to.scheme() != "https";
}

bool KeepsBody(int status) {
  return status == 307 || status == 308;
}

void DropBody(HttpRequest& request) {
  request.Method = "GET";
  request.Body.clear();
  std::erase_if(request.Headers, [](const HttpHeader& header) {
    return EqualsIgnoringCase(header.Name.substr(0, 8), "Content-");
  });
}

}  // namespace

bool IsWebAddress(const QUrl& url) {
  return url.isValid() && (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

QNetworkProxy QtProxy(const std::optional<Proxy>& proxy) {
  if (!proxy) return QNetworkProxy(QNetworkProxy::NoProxy);
  return QNetworkProxy(QNetworkProxy::HttpProxy, ToQString(proxy->Host), proxy->Port, ToQString(proxy->User),
                       ToQString(proxy->Password));
}

QNetworkRequest QtRequest(const HttpRequest& asked, const QUrl& url, const QNetworkProxy& proxy) {
  QNetworkRequest request(url);
  SetAttributes(request);
  request.setRawHeader("User-Agent", QByteArray::fromStdString(asked.UserAgent));
  request.setRawHeader("Accept-Language", "en");  // Qt would take it from the user's locale
  if (!asked.IsRepeatable) MakeUnrepeatable(request, asked, proxy);
  for (const auto& header : asked.Headers)
    request.setRawHeader(QByteArray::fromStdString(header.Name), QByteArray::fromStdString(header.Value));
  return request;
}

// A form has a password in it. What is said of it once it has been taken may come from anywhere; a page that
// was asked for over https may not come over http.
std::string FollowRedirect(HttpRequest& request, int status, const QUrl& from, const QUrl& to) {
  const bool isForm = !request.IsRepeatable;
  if (!KeepsBody(status)) DropBody(request);
  if (isForm && !request.Body.empty() && (from.host() != to.host() || LosesEncryption(from, to)))
    return "a redirect of the form to " + to.host().toStdString() + " was refused";
  if (!isForm && LosesEncryption(from, to))
    return "a redirect from a secure page to an insecure one was refused";
  return {};
}

}  // namespace brelwin
