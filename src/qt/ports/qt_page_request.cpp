#include "qt/ports/qt_page_request.h"

#include <QNetworkCookieJar>
#include <QNetworkRequest>
#include <algorithm>
#include <utility>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

// Taken in one go; a small packed body may unpack to very many bytes, and the window is to stay alive.
constexpr std::uint64_t SliceBytes = 256 * 1024;
constexpr int MaximumRedirects = 10;

bool IsWebAddress(const QUrl& url) {
  return url.isValid() && (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

// Errors of these kinds only repeat the status of an answer that is there to be read.
bool IsOnlyTheStatus(QNetworkReply::NetworkError error) {
  return (error > QNetworkReply::UnknownProxyError && error <= QNetworkReply::UnknownContentError) ||
         error > QNetworkReply::ProtocolFailure;
}

QNetworkRequest RequestFor(const PageQuery& query) {
  QNetworkRequest request(QUrl(ToQString(query.Url)));
  request.setRawHeader("User-Agent", QByteArray::fromStdString(query.UserAgent));
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(MaximumRedirects);
  request.setDecompressedSafetyCheckThreshold(-1);  // MaximumBytes is the limit
  return request;
}

}  // namespace

QtPageRequest::QtPageRequest(const PageQuery& query, const QNetworkProxy& proxy)
    : maximumBytes_(query.MaximumBytes) {
  nextSlice_.setSingleShot(true);
  nextSlice_.setInterval(0);
  nextSlice_.callOnTimeout([this] { TakeSlice(); });
  manager_.setProxy(proxy);
  if (IsWebAddress(QUrl(ToQString(query.Url))))
    Start(query);
  else
    Finish("\"" + query.Url + "\" is no web address");
}

QtPageRequest::~QtPageRequest() {
  if (!reply_) return;
  reply_->disconnect();
  reply_->abort();
}

int QtPageRequest::StatusCode() const {
  return reply_ ? reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() : 0;
}

void QtPageRequest::Start(const PageQuery& query) {
  reply_.reset(manager_.get(RequestFor(query)));
  QObject::connect(reply_.get(), &QNetworkReply::metaDataChanged, &nextSlice_, [this] {
    if (state_ == State::Connecting) state_ = State::Receiving;
  });
  QObject::connect(reply_.get(), &QNetworkReply::readyRead, &nextSlice_, qOverload<>(&QTimer::start));
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
    Finish(TransportError());
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
    case QNetworkReply::TooManyRedirectsError: return "the server sent the reader round in circles";
    case QNetworkReply::InsecureRedirectError:
      return "a redirect from a secure page to an insecure one was refused";
    default: return IsOnlyTheStatus(error) ? std::string() : reply_->errorString().toStdString();
  }
}

}  // namespace brelwin
