#include "qt/ports/qt_http_transfer.h"

#include <algorithm>
#include <utility>

#include "qt/ports/qt_http_reply.h"
#include "qt/ports/qt_http_request.h"
#include "qt/ports/qt_text.h"

namespace brelwin {

namespace {

// Taken in one go; a small compressed body may decompress to very many bytes, and the window is to stay
// alive.
constexpr std::uint64_t SliceBytes = std::uint64_t{256} * 1024;

// Between two looks at what the system has received, while Qt tells of nothing.
constexpr std::chrono::milliseconds LookInterval{250};

std::uint16_t PortOf(const QUrl& url) {
  return static_cast<std::uint16_t>(url.port(url.scheme() == "https" ? 443 : 80));
}

}  // namespace

QtHttpTransfer::QtHttpTransfer(const HttpRequest& request, ProxySettings proxies)
    : request_(request), url_(ToQString(request.Url)), proxies_(std::move(proxies)) {
  next_.setSingleShot(true);
  next_.setInterval(0);
  next_.callOnTimeout([this] { reply_ ? TakeSlice() : Ask(); });
  next_.start();
  look_.setInterval(LookInterval);
  look_.callOnTimeout([this] { CountReceived(); });
}

QtHttpTransfer::~QtHttpTransfer() {
  DropClient();
}

void QtHttpTransfer::Ask() {
  if (!IsWebAddress(url_))
    return Finish(QNetworkReply::ProtocolUnknownError,
                  "\"" + url_.toString().toStdString() + "\" is no web address");
  const auto proxy = ProxyForUrl(proxies_, url_.toString().toStdString());
  remotePort_ = proxy ? proxy->Port : PortOf(url_);
  client_ = std::make_unique<QNetworkAccessManager>();
  client_->setProxy(QtProxy(proxy));
  reply_.reset(client_->sendCustomRequest(QtRequest(request_, url_, client_->proxy()),
                                          QByteArray::fromStdString(request_.Method), BodyToSend()));
  Listen();
}

QIODevice* QtHttpTransfer::BodyToSend() {
  if (request_.Body.empty()) return nullptr;
  return new UnrepeatableBody(
      QByteArray::fromStdString(request_.Body), [this] { return MayLeave(); }, client_.get());
}

// Qt is asking, so the request is ended from the timer.
bool QtHttpTransfer::MayLeave() {
  if (!request_.MayLeave || request_.MayLeave()) return true;
  isHeldBack_ = true;
  next_.start();
  return false;
}

// Nothing of the client is dropped while it tells something: all is done from the timer.
void QtHttpTransfer::Listen() {
  QObject::connect(reply_.get(), &QNetworkReply::metaDataChanged, &next_, [this] { NoteHead(); });
  QObject::connect(reply_.get(), &QNetworkReply::requestSent, &next_, [this] { ++signs_; });
  QObject::connect(reply_.get(), &QNetworkReply::readyRead, &next_, [this] {
    ++signs_;
    next_.start();
    look_.start();
  });
  QObject::connect(reply_.get(), &QNetworkReply::finished, &next_, qOverload<>(&QTimer::start));
  look_.start();
}

// Qt tells of an answer only when its head is complete, and of a compressed body only when something has come
// out of it.
void QtHttpTransfer::CountReceived() {
  const auto received = ReceivedBytes(remotePort_);
  if (std::exchange(received_, received) != received) ++signs_;
}

void QtHttpTransfer::NoteHead() {
  const int status = StatusOf(*reply_);
  if (IsRedirect(status) && !RedirectionOf(*reply_).isEmpty()) return;
  answer_.Status = status;
  answer_.Reason = ReasonOf(*reply_);
  answer_.Headers = HeadersOf(*reply_);
}

void QtHttpTransfer::TakeSlice() {
  if (isHeldBack_) return Finish(QNetworkReply::OperationCanceledError, "it was held back");
  const auto limit = request_.Limits.MaximumBytes;
  const auto room = std::min<std::uint64_t>(SliceBytes, limit - answer_.Body.size() + 1);
  const auto piece = reply_->read(static_cast<qint64>(room));
  if (answer_.Status != 0) answer_.Body.append(piece.constData(), static_cast<std::size_t>(piece.size()));
  if (answer_.Body.size() > limit) {
    answer_.Body.resize(limit);
    return Finish(QNetworkReply::UnknownContentError,
                  "the page is longer than " + std::to_string(limit) + " bytes and was cut there");
  }
  if (!piece.isEmpty())
    next_.start();
  else if (reply_->isFinished())
    EndOfReply();
}

void QtHttpTransfer::EndOfReply() {
  NoteHead();
  const auto failure = FailureOf(*reply_, answer_.Body.size());
  const int status = StatusOf(*reply_);
  if (failure.Number == QNetworkReply::NoError && IsRedirect(status)) return Follow(status);
  Finish(failure.Number, failure.Words);
}

void QtHttpTransfer::Follow(int status) {
  const auto redirection = RedirectionOf(*reply_);
  if (redirection.isEmpty()) return Finish(QNetworkReply::ProtocolFailure, "a redirect without an address");
  if (++redirects_ > request_.Limits.MostRedirects)
    return Finish(QNetworkReply::TooManyRedirectsError, "the server sent the reader round in circles");
  const auto target = url_.resolved(redirection);
  if (!IsWebAddress(target))
    return Finish(QNetworkReply::ProtocolFailure, "a redirect to \"" + target.toString().toStdString() +
                                                      "\" was refused: it is no web address");
  auto refusal = FollowRedirect(request_, status, url_, target);
  if (!refusal.empty()) return Finish(QNetworkReply::InsecureRedirectError, std::move(refusal));
  url_ = target;
  DropClient();
  next_.start();
}

void QtHttpTransfer::Finish(int errorNumber, std::string errorText) {
  answer_.ErrorNumber = errorNumber;
  answer_.ErrorText = std::move(errorText);
  isFinished_ = true;
  DropClient();
  const auto finished = std::move(Finished);  // may end this
  if (finished) finished();
}

void QtHttpTransfer::DropClient() {
  next_.stop();
  look_.stop();
  if (reply_) {
    reply_->disconnect();
    reply_->abort();
  }
  reply_.reset();
  client_.reset();
}

std::unique_ptr<HttpTransfer> QtHttpClient::Start(const HttpRequest& request) {
  return std::make_unique<QtHttpTransfer>(request, proxies_);
}

}  // namespace brelwin
