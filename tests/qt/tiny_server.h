// A web server on loopback that says what the test puts in its mouth, piece by piece.
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

namespace brelwin::test {

class TinyServer {
 public:
  // Answers every request, once its head is there, with what the function gives for its first line; an empty
  // answer is never sent. The connection is closed after the answer, unless told otherwise.
  using Answer = std::function<QByteArray(const QByteArray& requestLine)>;

  explicit TinyServer(Answer answer) : answer_(std::move(answer)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { Accept(); });
  }

  std::string Url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
  }
  quint16 Port() const { return server_.serverPort(); }

  std::vector<QByteArray> Heads;  // of the requests so far
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
    if (!socket.peek(65536).contains("\r\n\r\n")) return;
    Heads.push_back(socket.readAll());
    const auto answer = answer_(Heads.back().left(Heads.back().indexOf("\r\n")));
    if (answer.isEmpty()) return;
    socket.write(answer);
    if (!KeepsConnections) socket.disconnectFromHost();
  }

  Answer answer_;
  QTcpServer server_;
};

// An answer whose length is told.
inline QByteArray Page(const QByteArray& body, const QByteArray& status = "200 OK",
                       const QByteArray& headers = {}) {
  return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
         "\r\n\r\n" + body;
}

}  // namespace brelwin::test
