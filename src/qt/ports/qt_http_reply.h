// What a reply of Qt's says: its status, its headers, and whether it is a whole answer. Qt tells of an
// answer only when its head is complete, and of a compressed body only when something has come out of it;
// the system counts every byte.
#pragma once

#include <QNetworkReply>
#include <QUrl>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/http.h"

namespace brelwin {

// How many bytes this process's open TCP connections to the port have received so far, of whatever they
// carry; 0 where the system does not tell.
std::uint64_t ReceivedBytes(std::uint16_t remotePort);

// 0 when there is no answer.
int StatusOf(const QNetworkReply& reply);

// The words behind the status, and the headers under it.
std::string ReasonOf(const QNetworkReply& reply);
std::vector<HttpHeader> HeadersOf(const QNetworkReply& reply);

// Whether the status sends the reader to another address.
bool IsRedirect(int status);

// That address; an empty one when the reply names none.
QUrl RedirectionOf(const QNetworkReply& reply);

// Why a reply that has ended is not a whole answer, as Qt numbers it and in words; of a body so many bytes
// have come. 0 and no words for a whole answer of whatever status.
struct HttpFailure {
  int Number = QNetworkReply::NoError;
  std::string Words;
};
HttpFailure FailureOf(const QNetworkReply& reply, std::uint64_t received);

}  // namespace brelwin
