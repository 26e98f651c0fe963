// A web server on loopback that says what the test puts in its mouth.
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <string>
#include <vector>

namespace brelwin::test {

inline const QByteArray HangUp =
    "(hang up)";  // an answer that is none: the connection is closed without a word

class TinyServer {
 public:
  // Answers every whole request with what the function gives for its target; an empty answer is never sent.
  // The connection is closed after the answer, unless told otherwise.
  using Answerer = std::function<QByteArray(const QByteArray& target)>;

  explicit TinyServer(Answerer answer = {}) : Answer(std::move(answer)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { Accept(); });
  }

  std::string Url(const std::string& path, const std::string& host = "127.0.0.1") const {
    return "http://" + host + ":" + std::to_string(server_.serverPort()) + path;
  }

  Answerer Answer;
  std::vector<QByteArray> Requests;
  int OpenConnections = 0;
  bool KeepsConnections = false;  // after an answer

 private:
  void Accept() {
    auto* socket = server_.nextPendingConnection();
    ++OpenConnections;
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Read(*socket); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
      --OpenConnections;
      socket->deleteLater();
    });
  }

  void Read(QTcpSocket& socket) {
    if (!IsWhole(socket.peek(1 << 20))) return;
    Requests.push_back(socket.readAll());
    const auto answer = Answer(Requests.back().split(' ')[1]);
    if (answer.isEmpty()) return;
    if (answer != HangUp) socket.write(answer);
    if (!KeepsConnections) socket.disconnectFromHost();
  }

  static bool IsWhole(const QByteArray& request) {
    constexpr QByteArrayView LengthHeader = "Content-Length: ";
    const auto headEnd = request.indexOf("\r\n\r\n");
    const auto at = request.indexOf(LengthHeader);
    const auto length = at < 0 ? 0 : request.mid(at + LengthHeader.size()).split('\r').first().toInt();
    return headEnd >= 0 && request.size() >= headEnd + 4 + length;
  }

  QTcpServer server_;
};

// An answer whose length is told.
inline QByteArray Page(const QByteArray& body, const QByteArray& status = "200 OK",
                       const QByteArray& headers = {}) {
  return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
         "\r\n\r\n" + body;
}

inline QByteArray Redirect(const QByteArray& status, const std::string& to) {
  return Page("moved", status, "Location: " + QByteArray::fromStdString(to) + "\r\n");
}

}  // namespace brelwin::test
