#include "qt/ports/qt_page_request.h"

#include <QNetworkCookieJar>
#include <QNetworkRequest>
#include <algorithm>
#include <utility>

#include "qt/ports/qt_text.h"
#include "qt/ports/received_bytes.h"
#include "qt/ports/toolkit_proxy.h"

namespace brelwin {
namespace {

// Taken in one go; a small packed body may unpack to very many bytes, and the window is to stay alive.
constexpr std::uint64_t SliceBytes = std::uint64_t{256} * 1024;
constexpr int MaximumRedirects = 10;

bool IsWebAddress(const QUrl& url) {
  return url.isValid() && (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

// Errors of these kinds only repeat the status of an answer that is there to be read.
bool IsOnlyTheStatus(QNetworkReply::NetworkError error) {
  return (error > QNetworkReply::UnknownProxyError && error <= QNetworkReply::UnknownContentError) ||
         error > QNetworkReply::ProtocolFailure;
}

// Redirects are followed here and not by the toolkit: it would ask twice on a connection that is kept, and
// would take the first address's proxy for all of them.
QNetworkRequest RequestFor(const QUrl& url, const std::string& userAgent) {
  QNetworkRequest request(url);
  request.setRawHeader("User-Agent", QByteArray::fromStdString(userAgent));
  request.setRawHeader("Accept-Language", "en");  // the toolkit would take it from the user's locale
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setDecompressedSafetyCheckThreshold(-1);  // MaximumBytes is the limit
  return request;
}

QUrl RedirectionOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
}

}  // namespace

QtPageRequest::QtPageRequest(const PageQuery& query, const ProxySettings& proxies)
    : userAgent_(query.UserAgent), maximumBytes_(query.MaximumBytes), proxies_(proxies) {
  nextSlice_.setSingleShot(true);
  nextSlice_.setInterval(0);
  nextSlice_.callOnTimeout([this] { TakeSlice(); });
  const QUrl url(ToQString(query.Url));
  if (IsWebAddress(url))
    Start(url);
  else
    Finish("\"" + query.Url + "\" is no web address");
}

QtPageRequest::~QtPageRequest() {
  if (!reply_) return;
  reply_->disconnect();
  reply_->abort();
}

std::uint64_t QtPageRequest::Activity() const {
  return signs_ + ReceivedBytes(remotePort_);
}

int QtPageRequest::StatusCode() const {
  if (!reply_ || !RedirectionOf(*reply_).isEmpty()) return 0;
  return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

void QtPageRequest::Start(const QUrl& url) {
  const auto proxy = ProxyForUrl(proxies_, url.toString().toStdString());
  manager_.setProxy(ToolkitProxy(proxy));
  remotePort_ =
      proxy ? proxy->Port : static_cast<std::uint16_t>(url.port(url.scheme() == "https" ? 443 : 80));
  reply_.reset(manager_.get(RequestFor(url, userAgent_)));
  QObject::connect(reply_.get(), &QNetworkReply::metaDataChanged, &nextSlice_, [this] {
    if (state_ == State::Connecting && RedirectionOf(*reply_).isEmpty()) state_ = State::Receiving;
  });
  QObject::connect(reply_.get(), &QNetworkReply::requestSent, &nextSlice_, [this] { ++signs_; });
  QObject::connect(reply_.get(), &QNetworkReply::readyRead, &nextSlice_, [this] {
    ++signs_;
    nextSlice_.start();
  });
  QObject::connect(reply_.get(), &QNetworkReply::finished, &nextSlice_, qOverload<>(&QTimer::start));
}

void QtPageRequest::TakeSlice() {
  const auto room = std::min<std::uint64_t>(SliceBytes, maximumBytes_ - body_.size() + 1);
  const auto piece = reply_->read(static_cast<qint64>(room));
  body_.append(piece.constData(), static_cast<std::size_t>(piece.size()));
  if (body_.size() > maximumBytes_) {
    body_.resize(maximumBytes_);
    return Finish("the page is longer than " + std::to_string(maximumBytes_) + " bytes and was cut there");
  }
  if (!piece.isEmpty())
    nextSlice_.start();
  else if (reply_->isFinished())
    End();
}

void QtPageRequest::End() {
  const auto redirection = RedirectionOf(*reply_);
  if (redirection.isEmpty()) return Finish(TransportError());
  body_.clear();
  Follow(reply_->url().resolved(redirection));
}

void QtPageRequest::Follow(const QUrl& url) {
  if (++redirects_ > MaximumRedirects) return Finish("the server sent the reader round in circles");
  if (!IsWebAddress(url))
    return Finish("a redirect to \"" + url.toString().toStdString() + "\" was refused: it is no web address");
  if (reply_->url().scheme() == "https" && url.scheme() != "https")
    return Finish("a redirect from a secure page to an insecure one was refused");
  Start(url);
}

void QtPageRequest::Finish(std::string errorText) {
  state_ = State::Finished;
  errorText_ = std::move(errorText);
  nextSlice_.stop();
  if (!reply_ || reply_->isFinished()) return;
  reply_->disconnect();
  reply_->abort();
}

std::string QtPageRequest::TransportError() const {
  switch (const auto error = reply_->error()) {
    case QNetworkReply::NoError: return {};
    case QNetworkReply::RemoteHostClosedError:
      return "the server closed the connection before the page ended";
    default: return IsOnlyTheStatus(error) ? std::string() : reply_->errorString().toStdString();
  }
}

}  // namespace brelwin
