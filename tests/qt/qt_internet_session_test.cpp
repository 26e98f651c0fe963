#include "qt/ports/qt_internet_session.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <memory>

#include "qt/ports/qt_event_queue.h"
#include "self_signed_certificate.h"
#include "tiny_server.h"

namespace brelwin {
namespace {

using std::chrono::milliseconds;
using test::Page;
using test::TinyServer;
using State = PageRequest::State;

constexpr qint64 LongestTest = 20000;  // milliseconds
constexpr std::uint64_t Plenty = 1 << 23;

class QtInternetSessionTest : public ::testing::Test {
 protected:
  std::unique_ptr<PageRequest> Open(const std::string& url, std::uint64_t maximumBytes = Plenty) {
    return session_.OpenUrl({url, "VB OpenUrl", maximumBytes});
  }

  // Waits for the end of the page.
  std::unique_ptr<PageRequest> Fetch(const std::string& url, std::uint64_t maximumBytes = Plenty) {
    auto request = Open(url, maximumBytes);
    WaitUntil([&] { return request->CurrentState() == State::Finished; });
    EXPECT_EQ(request->CurrentState(), State::Finished);
    return request;
  }

  void WaitUntil(const std::function<bool()>& condition) {
    QElapsedTimer watch;
    for (watch.start(); !condition() && watch.elapsed() < LongestTest;)
      queue_.WaitForEvents(milliseconds(50));
  }

  QtEventQueue queue_;
  QtInternetSession session_{ProxySettings{}};
};

// Unpacks to a thousand times its length, and to more than is taken in one slice.
constexpr int Letters = 3000000;
QByteArray PackedLetters() {
  return qCompress(QByteArray(Letters, 'a'), 9).mid(4);  // without the toolkit's own head: a zlib stream
}

TEST_F(QtInternetSessionTest, AsksAsThisProgramAndWithoutConditions) {
  TinyServer server([](const QByteArray&) { return Page("hello"); });
  const auto request = Fetch(server.Url("/RssFeed?q=1"));
  EXPECT_EQ(request->StatusCode(), 200);
  EXPECT_EQ(request->Body(), "hello");
  EXPECT_EQ(request->ErrorText(), "");
  Fetch(server.Url("/RssFeed?q=1"));
  ASSERT_EQ(server.Heads.size(), 2u);  // nothing came from a cache
  for (const auto& head : server.Heads) {
    EXPECT_TRUE(head.startsWith("GET /RssFeed?q=1 HTTP/1.1\r\n"));
    EXPECT_TRUE(head.contains("User-Agent: VB OpenUrl\r\n")) << head.toStdString();
    EXPECT_TRUE(head.contains("Accept-Language: en\r\n")) << head.toStdString();  // whatever the locale
    EXPECT_FALSE(head.contains("If-")) << head.toStdString();
  }
}

TEST_F(QtInternetSessionTest, ReadsEveryKindOfBody) {
  TinyServer server([](const QByteArray& line) -> QByteArray {
    if (line.contains("/chunked"))
      return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n4\r\ndefg\r\n0\r\n\r\n";
    if (line.contains("/packed")) return Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n");
    if (line.contains("/until-close")) return "HTTP/1.0 200 OK\r\n\r\nto the end";
    if (line.contains("/missing")) return Page("not here", "404 Not Found");
    if (line.contains("/broken")) return Page("sorry", "500 Internal Server Error");
    if (line.contains("/moved"))
      return "HTTP/1.1 302 Found\r\nLocation: /missing\r\nContent-Length: 0\r\n\r\n";
    return Page("");
  });
  const struct {
    const char* Path;
    int Status;
    std::string Body;
  } cases[] = {{"/chunked", 200, "abcdefg"},
               {"/packed", 200, std::string(Letters, 'a')},
               {"/until-close", 200, "to the end"},
               {"/missing", 404, "not here"},
               {"/broken", 500, "sorry"},
               {"/moved", 404, "not here"},
               {"/empty", 200, ""}};
  for (const auto& one : cases) {
    const auto request = Fetch(server.Url(one.Path));
    EXPECT_EQ(request->StatusCode(), one.Status) << one.Path;
    EXPECT_EQ(request->Body(), one.Body) << one.Path;
    EXPECT_EQ(request->ErrorText(), "") << one.Path;
  }
}

// On one connection that is kept, as most servers do it.
TEST_F(QtInternetSessionTest, AsksEveryAddressOfAChainOfRedirectsOnce) {
  TinyServer server([](const QByteArray& line) {
    if (line.contains("/first")) return Page("moved", "302 Found", "Location: /second?x=1%202\r\n");
    if (line.contains("/second")) return Page("moved", "301 Moved", "Location: third\r\n");
    return Page("here");
  });
  server.KeepsConnections = true;
  const auto request = Fetch(server.Url("/first"));
  EXPECT_EQ(request->Body(), "here");
  EXPECT_EQ(request->StatusCode(), 200);
  std::vector<std::string> asked;
  for (const auto& head : server.Heads) asked.push_back(head.left(head.indexOf(" HTTP")).toStdString());
  EXPECT_EQ(asked, (std::vector<std::string>{"GET /first", "GET /second?x=1%202", "GET /third"}));
}

// What is on the way is no answer.
TEST_F(QtInternetSessionTest, RedirectsThatLeadNowhereAreNotOpened) {
  TinyServer server([&](const QByteArray& line) -> QByteArray {
    const auto to = [](const QByteArray& target) {
      return Page("moved", "302 Found", "Location: " + target + "\r\n");
    };
    if (line.contains("/closed")) return to("http://127.0.0.1:1/");
    if (line.contains("/round")) return to("/round");
    if (line.contains("/strange")) return to("file:///etc/passwd");
    if (line.contains("/silent")) return to("/never");
    return line.contains("/never") ? QByteArray() : Page("", "302 Found");
  });
  for (const std::string path : {"/closed", "/round", "/strange"}) {
    const auto request = Fetch(server.Url(path));
    EXPECT_EQ(request->StatusCode(), 0) << path;
    EXPECT_EQ(request->Body(), "") << path;
    EXPECT_NE(request->ErrorText(), "") << path;
  }
  EXPECT_LT(server.Heads.size(), 20u);
  const auto waiting = Open(server.Url("/silent"));
  WaitUntil([&] { return server.Heads.back().startsWith("GET /never"); });
  EXPECT_EQ(waiting->StatusCode(), 0);
  EXPECT_EQ(Fetch(server.Url("/without"))->StatusCode(), 302);
}

TEST_F(QtInternetSessionTest, KeepsNoMoreThanAskedFor) {
  TinyServer server([](const QByteArray& line) {
    return line.contains("/packed") ? Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n")
                                    : Page(QByteArray(100, 'x'));
  });
  EXPECT_EQ(Fetch(server.Url("/plain"), 100)->ErrorText(), "");
  const auto cut = Fetch(server.Url("/plain"), 99);
  EXPECT_EQ(cut->Body(), std::string(99, 'x'));
  EXPECT_NE(cut->ErrorText(), "");
  EXPECT_EQ(Fetch(server.Url("/packed"), 1000)->Body().size(), 1000u);
}

TEST_F(QtInternetSessionTest, AConnectionThatBreaksOffLeavesWhatCame) {
  TinyServer server([](const QByteArray&) -> QByteArray {
    return "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nonly this";
  });
  const auto request = Fetch(server.Url("/"));
  EXPECT_EQ(request->StatusCode(), 200);
  EXPECT_EQ(request->Body(), "only this");
  EXPECT_NE(request->ErrorText(), "");
}

TEST_F(QtInternetSessionTest, WhatCannotBeReachedHasWordsAndNoStatus) {
  quint16 closedPort = 0;
  {
    TinyServer server([](const QByteArray&) { return Page(""); });
    closedPort = server.Port();
  }
  for (const auto& url :
       {"http://127.0.0.1:" + std::to_string(closedPort) + "/", std::string("file:///etc/passwd"),
        std::string("data:,x"), std::string("nonsense"), std::string()}) {
    const auto request = Fetch(url);
    EXPECT_EQ(request->StatusCode(), 0) << url;
    EXPECT_EQ(request->Body(), "") << url;
    EXPECT_NE(request->ErrorText(), "") << url;
  }
}

TEST_F(QtInternetSessionTest, TellsWhatHasComeWhileTheRestIsOutstanding) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  const auto request = Open("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/");
  EXPECT_EQ(request->CurrentState(), State::Connecting);
  WaitUntil([&] { return server.hasPendingConnections(); });
  auto* socket = server.nextPendingConnection();
  ASSERT_NE(socket, nullptr);
  WaitUntil([&] { return socket->bytesAvailable() > 0; });
  socket->write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nfirst");
  WaitUntil([&] { return request->Body() == "first"; });
  EXPECT_EQ(request->CurrentState(), State::Receiving);
  EXPECT_EQ(request->StatusCode(), 200);
  socket->write(" two");
  WaitUntil([&] { return request->CurrentState() == State::Finished; });
  EXPECT_EQ(request->Body(), "first two");
}

TEST_F(QtInternetSessionTest, NoticesTheFirstBytesOfAHeadAndOfAPackedBody) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  const auto request = Open("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/");
  WaitUntil([&] { return server.hasPendingConnections(); });
  auto* socket = server.nextPendingConnection();
  ASSERT_NE(socket, nullptr);
  WaitUntil([&] { return socket->bytesAvailable() > 0; });
  const auto isQuiet = [&] {
    const auto before = request->Activity();
    for (int look = 0; look < 3; ++look) queue_.WaitForEvents(milliseconds(20));
    return request->Activity() == before;
  };
  const auto packed = PackedLetters();
  for (const auto& piece :
       {QByteArray("HTTP/1.1 20"), QByteArray("0 OK\r\nContent-Encoding: deflate\r\n\r\n"), packed.left(1),
        packed.mid(1, 1)}) {
    WaitUntil(isQuiet);
    const auto before = request->Activity();
    socket->write(piece);
    WaitUntil([&] { return request->Activity() != before; });
    EXPECT_NE(request->Activity(), before) << piece.toStdString();
    EXPECT_EQ(request->Body(), "");
  }
  WaitUntil(isQuiet);
  EXPECT_TRUE(isQuiet());
}

TEST_F(QtInternetSessionTest, TheEndOfARequestEndsItsConnection) {
  TinyServer server([](const QByteArray&) { return QByteArray(); });
  auto request = Open(server.Url("/never"));
  WaitUntil([&] { return !server.Heads.empty(); });
  EXPECT_EQ(server.OpenConnections, 1);
  request.reset();
  WaitUntil([&] { return server.OpenConnections == 0; });
  EXPECT_EQ(server.OpenConnections, 0);
}

TEST_F(QtInternetSessionTest, GoesThroughTheProxyOfTheEnvironment) {
  TinyServer proxy([](const QByteArray&) { return Page("by proxy"); });
  QtInternetSession session(
      ProxySettings{"http://127.0.0.1:" + std::to_string(proxy.Port()), "", "direct.test"});
  const auto request = session.OpenUrl({"http://feed.test/RssFeed", "VB OpenUrl", Plenty});
  WaitUntil([&] { return request->CurrentState() == State::Finished; });
  EXPECT_EQ(request->Body(), "by proxy");
  ASSERT_EQ(proxy.Heads.size(), 1u);
  EXPECT_TRUE(proxy.Heads[0].startsWith("GET http://feed.test/RssFeed HTTP/1.1"));
}

TEST_F(QtInternetSessionTest, EveryAddressOnTheWayHasItsOwnProxy) {
  TinyServer direct([](const QByteArray& line) {
    return line.contains("/away") ? Page("", "302 Found", "Location: http://feed.test/end\r\n")
                                  : Page("direct");
  });
  const auto home = QByteArray::fromStdString(direct.Url("/end"));
  TinyServer proxy([&](const QByteArray& line) {
    return line.contains("/home") ? Page("", "302 Found", "Location: " + home + "\r\n") : Page("by proxy");
  });
  QtInternetSession session(
      ProxySettings{"http://127.0.0.1:" + std::to_string(proxy.Port()), "", "127.0.0.1"});
  for (const auto& [url, body] : {std::pair(std::string("http://feed.test/home"), "direct"),
                                  std::pair(direct.Url("/away"), "by proxy")}) {
    const auto request = session.OpenUrl({url, "VB OpenUrl", Plenty});
    WaitUntil([&] { return request->CurrentState() == State::Finished; });
    EXPECT_EQ(request->Body(), body) << url;
  }
}

TEST_F(QtInternetSessionTest, ACertificateThatNobodyVouchesForIsRefused) {
  QSslConfiguration configuration;
  configuration.setLocalCertificate(QSslCertificate(test::SelfSignedCertificate));
  configuration.setPrivateKey(QSslKey(test::KeyOfTheCertificate, QSsl::Ec));
  QSslServer server;
  server.setSslConfiguration(configuration);
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  const auto request = Fetch("https://127.0.0.1:" + std::to_string(server.serverPort()) + "/");
  EXPECT_EQ(request->StatusCode(), 0);
  EXPECT_EQ(request->Body(), "");
  EXPECT_NE(request->ErrorText().find("certificate"), std::string::npos) << request->ErrorText();
}

}  // namespace
}  // namespace brelwin
