#include "qt/ports/qt_http_reply.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QDir>
#include <QNetworkRequest>
#include <algorithm>
#include <array>

namespace brelwin {

namespace {

std::uint16_t RemotePort(int descriptor) {
  sockaddr_in6 address{};  // the port stands at the same place in addresses of both kinds
  socklen_t length = sizeof address;
  if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
  const bool isInternet = address.sin6_family == AF_INET || address.sin6_family == AF_INET6;
  return isInternet ? ntohs(address.sin6_port) : std::uint16_t{0};
}

std::uint64_t BytesOf(int descriptor) {
  tcp_info information{};
  socklen_t length = sizeof information;
  if (::getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &information, &length) != 0) return 0;
  return information.tcpi_bytes_received;
}

}  // namespace

std::uint64_t ReceivedBytes(std::uint16_t remotePort) {
  std::uint64_t bytes = 0;
  for (const auto& name :
       QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)) {
    const int descriptor = name.toInt();
    if (RemotePort(descriptor) == remotePort) bytes += BytesOf(descriptor);
  }
  return bytes;
}

namespace {

constexpr int FirstFinalStatus = 200;

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

// An answer with neither length nor chunks lasts until the connection is closed.
bool LastsUntilClosed(const QNetworkReply& reply) {
  return !reply.header(QNetworkRequest::ContentLengthHeader).isValid() &&
         !reply.hasRawHeader("Transfer-Encoding");
}

// When the connection is closed, and at a redirect with the form, Qt turns to sending a form again. Its body
// does not allow that, and Qt complains of it, whatever has come.
QNetworkReply::NetworkError ErrorOf(const QNetworkReply& reply) {
  if (reply.error() != QNetworkReply::ContentReSendError) return reply.error();
  const int status = StatusOf(reply);
  const bool isAllThere = status != 0 && (status == 307 || status == 308 || LastsUntilClosed(reply));
  return isAllThere ? QNetworkReply::NoError : QNetworkReply::RemoteHostClosedError;
}

// 204 No Content and 304 Not Modified have none, whatever length they tell; that of a redirect is not read to
// its end. Of a compressed body Qt takes the length away, since it is not that of what comes out.
bool HasBody(int status) {
  return status != 204 && status != 304 && !IsRedirect(status);
}

bool IsCut(const QNetworkReply& reply, std::uint64_t received) {
  const auto length = reply.header(QNetworkRequest::ContentLengthHeader);
  return HasBody(StatusOf(reply)) && length.isValid() && received < length.toULongLong();
}

std::string WordsOf(const QNetworkReply& reply, QNetworkReply::NetworkError error) {
  return error == QNetworkReply::RemoteHostClosedError
             ? "the server closed the connection before the page ended"
             : reply.errorString().toStdString();
}

}  // namespace

int StatusOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

std::string ReasonOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString().toStdString();
}

std::vector<HttpHeader> HeadersOf(const QNetworkReply& reply) {
  std::vector<HttpHeader> headers;
  for (const auto& [name, value] : reply.rawHeaderPairs())
    headers.push_back({name.toStdString(), value.toStdString()});
  return headers;
}

bool IsRedirect(int status) {
  constexpr std::array Redirects{301, 302, 303, 307, 308};
  return std::ranges::find(Redirects, status) != Redirects.end();
}

QUrl RedirectionOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
}

HttpFailure FailureOf(const QNetworkReply& reply, std::uint64_t received) {
  const auto error = ErrorOf(reply);
  const int status = StatusOf(reply);
  if (status == 0 && error == QNetworkReply::NoError)
    return {QNetworkReply::ProtocolFailure, "the server gave no answer of HTTP"};
  if (status == 0 || !IsOnlyTheStatus(error)) return {error, WordsOf(reply, error)};
  if (status < FirstFinalStatus)
    return {QNetworkReply::ProtocolFailure, "the server gave an interim answer only"};
  if (IsCut(reply, received))
    return {QNetworkReply::RemoteHostClosedError, WordsOf(reply, QNetworkReply::RemoteHostClosedError)};
  return {};
}

}  // namespace brelwin
