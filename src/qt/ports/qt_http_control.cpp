#include "qt/ports/qt_http_control.h"

#include <QNetworkProxy>
#include <QNetworkRequest>
#include <algorithm>
#include <array>
#include <utility>

#include "qt/ports/qt_text.h"
#include "qt/ports/toolkit_proxy.h"
#include "qt/ports/unrepeatable_body.h"

namespace brelwin {
namespace {

constexpr int MostRedirects = 5;
constexpr int FirstFinalStatus = 200;
constexpr qsizetype LongestAnswer = qsizetype{16} * 1024 * 1024;
constexpr std::chrono::seconds LongestTransfer{120};

bool IsWebAddress(const QUrl& url) {
  return url.isValid() && (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

// Errors that only repeat the status of an answer which is there as a whole.
bool IsOnlyTheStatus(QNetworkReply::NetworkError error) {
  constexpr std::array OnlyTheStatus{QNetworkReply::NoError,
                                     QNetworkReply::ContentAccessDenied,
                                     QNetworkReply::ContentOperationNotPermittedError,
                                     QNetworkReply::ContentNotFoundError,
                                     QNetworkReply::AuthenticationRequiredError,
                                     QNetworkReply::ProxyAuthenticationRequiredError,
                                     QNetworkReply::ContentConflictError,
                                     QNetworkReply::ContentGoneError,
                                     QNetworkReply::UnknownContentError,
                                     QNetworkReply::ProtocolInvalidOperationError,
                                     QNetworkReply::InternalServerError,
                                     QNetworkReply::OperationNotImplementedError,
                                     QNetworkReply::ServiceUnavailableError,
                                     QNetworkReply::UnknownServerError};
  return std::ranges::find(OnlyTheStatus, error) != OnlyTheStatus.end();
}

bool IsRedirect(int status) {
  constexpr std::array Redirects{301, 302, 303, 307, 308};
  return std::ranges::find(Redirects, status) != Redirects.end();
}

bool KeepsBody(int status) {
  return status == 307 || status == 308;
}

// Where a form, with the password in it, may be sent again.
bool IsAsSafe(const QUrl& from, const QUrl& to) {
  const bool losesEncryption = from.scheme() == "https" && to.scheme() != "https";
  return from.host() == to.host() && !losesEncryption;
}

void SetHeaders(QNetworkRequest& request, const QByteArray& lines) {
  for (const auto& line : lines.split('\n')) {
    const auto colon = line.indexOf(':');
    if (colon > 0) request.setRawHeader(line.left(colon).trimmed(), line.mid(colon + 1).trimmed());
  }
}

QNetworkRequest RequestTo(const QUrl& url, const QByteArray& headers, qsizetype bodyLength) {
  QNetworkRequest request(url);
  request.setRawHeader("User-Agent", "VB OpenUrl");
  request.setRawHeader("Accept-Language", "en");        // the client would take it from the user's locale
  request.setRawHeader("Accept-Encoding", "identity");  // the length of what comes shows whether it is whole
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
  if (bodyLength > 0) request.setHeader(QNetworkRequest::ContentLengthHeader, bodyLength);
  SetHeaders(request, headers);
  return request;
}

// The client would wait to be asked, and then send the form again. To a proxy of plain HTTP only: with HTTPS
// the line would go through to the server.
void IntroduceToProxy(QNetworkRequest& request, const QNetworkProxy& proxy) {
  if (proxy.user().isEmpty() || request.url().scheme() != "http") return;
  const auto credentials = (proxy.user() + ":" + proxy.password()).toUtf8();
  request.setRawHeader("Proxy-Authorization", "Basic " + credentials.toBase64());
}

int StatusOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// An answer with neither length nor chunks lasts until the connection is closed.
bool LastsUntilClosed(const QNetworkReply& reply) {
  return !reply.header(QNetworkRequest::ContentLengthHeader).isValid() &&
         !reply.hasRawHeader("Transfer-Encoding");
}

// When the connection is closed, and at a redirect with the form, the client turns to sending the form again.
// This body does not allow it, and the client complains of that, whatever has come.
QNetworkReply::NetworkError ErrorOf(const QNetworkReply& reply) {
  if (reply.error() != QNetworkReply::ContentReSendError) return reply.error();
  const int status = StatusOf(reply);
  const bool isAllThere = status != 0 && (KeepsBody(status) || LastsUntilClosed(reply));
  return isAllThere ? QNetworkReply::NoError : QNetworkReply::RemoteHostClosedError;
}

std::string WordsOf(const QNetworkReply& reply) {
  return reply.error() == QNetworkReply::ContentReSendError
             ? "the connection was closed before the whole answer had come"
             : reply.errorString().toStdString();
}

bool IsCut(const QNetworkReply& reply, qsizetype received) {
  const auto length = reply.header(QNetworkRequest::ContentLengthHeader);
  return length.isValid() && received < length.toLongLong();
}

}  // namespace

QtHttpControl::QtHttpControl(ProxySettings proxies) : proxies_(std::move(proxies)) {
  start_.setSingleShot(true);
  start_.callOnTimeout([this] { Start(); });
  limit_.setSingleShot(true);
  limit_.setInterval(LongestTransfer);
  limit_.callOnTimeout(
      [this] { Fail(QNetworkReply::TimeoutError, "no complete answer within 120 seconds"); });
}

QtHttpControl::~QtHttpControl() {
  if (reply_ == nullptr) return;
  reply_->disconnect();
  reply_->abort();
}

void QtHttpControl::Execute(const HttpRequest& request) {
  Cancel();
  hop_ = {QUrl(ToQString(request.Url)), QByteArray::fromStdString(request.Verb),
          QByteArray::fromStdString(request.Body), QByteArray::fromStdString(request.Headers)};
  mayLeave_ = request.MayLeave;
  redirects_ = 0;
  start_.start(0);
  limit_.start();
}

std::string QtHttpControl::GetChunk(std::size_t atMost) {
  const auto chunk = answer_.mid(read_, static_cast<qsizetype>(atMost));
  read_ += chunk.size();
  return chunk.toStdString();
}

void QtHttpControl::Cancel() {
  start_.stop();
  limit_.stop();
  DropClient();
  answer_.clear();
  read_ = 0;
  code_ = 0;
  info_.clear();
}

void QtHttpControl::Start() {
  if (!IsWebAddress(hop_.Url))
    return Fail(QNetworkReply::ProtocolUnknownError,
                "the address does not begin with http:// or https:// and the name of a server");
  answer_.clear();
  client_ = std::make_unique<QNetworkAccessManager>();
  client_->setProxy(ToolkitProxy(ProxyForUrl(proxies_, hop_.Url.toString().toStdString())));
  auto request = RequestTo(hop_.Url, hop_.Headers, hop_.Body.size());
  IntroduceToProxy(request, client_->proxy());
  auto* body = hop_.Body.isEmpty() ? nullptr
                                   : new UnrepeatableBody(
                                         hop_.Body, [this] { return MayLeave(); }, client_.get());
  reply_ = client_->sendCustomRequest(request, hop_.Verb, body);
  QObject::connect(reply_, &QNetworkReply::readyRead, &start_, [this] { TakeBytes(); });
  QObject::connect(reply_, &QNetworkReply::finished, &start_, [this] { Finish(); });
}

// The client is asking, so the request is ended only when that is over.
bool QtHttpControl::MayLeave() {
  if (!mayLeave_ || mayLeave_()) return true;
  QTimer::singleShot(0, reply_, [this] { Fail(QNetworkReply::OperationCanceledError, "it was held back"); });
  return false;
}

void QtHttpControl::TakeBytes() {
  if (answer_.isEmpty()) Tell(7);
  if (reply_ == nullptr) return;
  answer_.append(reply_->readAll());
  if (answer_.size() > LongestAnswer)
    Fail(QNetworkReply::UnknownContentError, "the answer is longer than 16 MiB");
}

void QtHttpControl::Finish() {
  answer_.append(reply_->readAll());
  const int status = StatusOf(*reply_);
  const auto error = ErrorOf(*reply_);
  if (status != 0 && status < FirstFinalStatus)
    return Fail(QNetworkReply::ProtocolFailure, "the server gave an interim answer only");
  if (status == 0 || !IsOnlyTheStatus(error))
    return Fail(error == QNetworkReply::NoError ? QNetworkReply::ProtocolFailure : error, WordsOf(*reply_));
  if (IsRedirect(status)) return Follow(status);
  if (IsCut(*reply_, answer_.size()))
    return Fail(QNetworkReply::RemoteHostClosedError,
                "the connection was closed in the middle of the answer");
  Complete(status);
}

void QtHttpControl::Follow(int status) {
  const auto location = reply_->rawHeader("Location");
  const auto target = hop_.Url.resolved(QUrl::fromEncoded(location));
  if (location.isEmpty() || !IsWebAddress(target))
    return Fail(QNetworkReply::ProtocolFailure, "a redirect without a usable address");
  if (++redirects_ > MostRedirects)
    return Fail(QNetworkReply::TooManyRedirectsError, "more than 5 redirects");
  if (KeepsBody(status) && !hop_.Body.isEmpty() && !IsAsSafe(hop_.Url, target))
    return Fail(QNetworkReply::InsecureRedirectError,
                "a redirect of the form to " + target.host().toStdString() + " was refused");
  if (!KeepsBody(status)) hop_ = {hop_.Url, "GET", {}, {}};
  hop_.Url = target;
  DropClient();
  start_.start(0);
}

void QtHttpControl::Complete(int status) {
  code_ = status;
  info_ = reply_->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString().toStdString();
  End(HttpStateCompleted);
}

void QtHttpControl::Fail(int number, std::string words) {
  code_ = number;
  info_ = std::move(words);
  answer_.clear();
  End(HttpStateError);
}

void QtHttpControl::End(std::int16_t state) {
  limit_.stop();
  DropClient();
  Tell(state);
}

// The client may be telling us something at this moment, so it is deleted only when that is over.
void QtHttpControl::DropClient() {
  if (reply_ != nullptr) {
    reply_->disconnect();
    reply_->abort();
    reply_ = nullptr;
  }
  if (client_) client_.release()->deleteLater();
}

void QtHttpControl::Tell(std::int16_t state) const {
  const auto listener = StateChanged;
  if (listener) listener(state);
}

}  // namespace brelwin
