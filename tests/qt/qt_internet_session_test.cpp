#include "qt/ports/qt_internet_session.h"

#include <gtest/gtest.h>

#include <memory>

#include "self_signed_server.h"
#include "tiny_server.h"
#include "wait_until.h"

namespace brelwin {
namespace {

using std::chrono::milliseconds;
using test::Page;
using test::Redirect;
using test::TinyServer;
using State = PageRequest::State;

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

  void WaitUntil(const std::function<bool()>& condition) { test::WaitUntil(queue_, condition); }

  // Asks the server for a page; gives its end of the connection once it has been asked, null without one.
  QTcpSocket* AskedAt(QTcpServer& server, std::unique_ptr<PageRequest>& request) {
    server.listen(QHostAddress::LocalHost);
    request = Open("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/");
    WaitUntil([&] { return server.hasPendingConnections(); });
    auto* socket = server.nextPendingConnection();
    WaitUntil([&] { return socket == nullptr || socket->bytesAvailable() > 0; });
    return socket;
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
  ASSERT_EQ(server.Requests.size(), 2u);  // nothing came from a cache
  for (const auto& head : server.Requests) {
    EXPECT_TRUE(head.startsWith("GET /RssFeed?q=1 HTTP/1.1\r\n"));
    EXPECT_TRUE(head.contains("User-Agent: VB OpenUrl\r\n")) << head.toStdString();
    EXPECT_TRUE(head.contains("Accept-Language: en\r\n")) << head.toStdString();  // whatever the locale
    EXPECT_FALSE(head.contains("If-")) << head.toStdString();
  }
}

TEST_F(QtInternetSessionTest, ReadsEveryKindOfBody) {
  TinyServer server([](const QByteArray& target) -> QByteArray {
    if (target.contains("/chunked"))
      return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n4\r\ndefg\r\n0\r\n\r\n";
    if (target.contains("/packed")) return Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n");
    if (target.contains("/until-close")) return "HTTP/1.0 200 OK\r\n\r\nto the end";
    if (target.contains("/missing")) return Page("not here", "404 Not Found");
    if (target.contains("/broken")) return Page("sorry", "500 Internal Server Error");
    if (target.contains("/moved")) return Redirect("302 Found", "/missing");
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

// What is on the way is no answer.
TEST_F(QtInternetSessionTest, RedirectsThatLeadNowhereAreNotOpened) {
  TinyServer server([&](const QByteArray& target) -> QByteArray {
    if (target == "/closed") return Redirect("302 Found", "http://127.0.0.1:1/");
    if (target == "/round") return Redirect("302 Found", "/round");
    if (target == "/strange") return Redirect("302 Found", "file:///etc/passwd");
    if (target == "/silent") return Redirect("302 Found", "/never");
    return target.contains("/never") ? QByteArray() : Page("", "302 Found");
  });
  for (const std::string path : {"/closed", "/round", "/strange"}) {
    const auto request = Fetch(server.Url(path));
    EXPECT_EQ(request->StatusCode(), 0) << path;
    EXPECT_EQ(request->Body(), "") << path;
    EXPECT_NE(request->ErrorText(), "") << path;
  }
  EXPECT_LT(server.Requests.size(), 20u);
  const auto waiting = Open(server.Url("/silent"));
  WaitUntil([&] { return server.Requests.back().startsWith("GET /never"); });
  EXPECT_EQ(waiting->StatusCode(), 0);
  EXPECT_EQ(Fetch(server.Url("/without"))->StatusCode(), 302);
}

TEST_F(QtInternetSessionTest, KeepsNoMoreThanAskedFor) {
  TinyServer server([](const QByteArray& target) {
    return target.contains("/packed") ? Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n")
                                      : Page(QByteArray(100, 'x'));
  });
  EXPECT_EQ(Fetch(server.Url("/plain"), 100)->ErrorText(), "");
  const auto cut = Fetch(server.Url("/plain"), 99);
  EXPECT_EQ(cut->Body(), std::string(99, 'x'));
  EXPECT_NE(cut->ErrorText(), "");
  EXPECT_EQ(Fetch(server.Url("/packed"), 1000)->Body().size(), 1000u);
}

TEST_F(QtInternetSessionTest, WhatCannotBeReachedHasWordsAndNoStatus) {
  for (const std::string url : {"http://127.0.0.1:1/", "file:///etc/passwd", "data:,x", "nonsense", ""}) {
    const auto request = Fetch(url);
    EXPECT_EQ(request->StatusCode(), 0) << url;
    EXPECT_EQ(request->Body(), "") << url;
    EXPECT_NE(request->ErrorText(), "") << url;
  }
}

TEST_F(QtInternetSessionTest, NoticesTheFirstBytesOfAHeadAndOfAPackedBody) {
  QTcpServer server;
  std::unique_ptr<PageRequest> request;
  auto* socket = AskedAt(server, request);
  ASSERT_NE(socket, nullptr);
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
  WaitUntil([&] { return !server.Requests.empty(); });
  EXPECT_EQ(server.OpenConnections, 1);
  request.reset();
  WaitUntil([&] { return server.OpenConnections == 0; });
  EXPECT_EQ(server.OpenConnections, 0);
}

TEST_F(QtInternetSessionTest, EveryAddressOnTheWayHasItsOwnProxy) {
  TinyServer direct([](const QByteArray& target) {
    return target == "/away" ? Redirect("302 Found", "http://feed.test/end") : Page("direct");
  });
  TinyServer proxy([&](const QByteArray& target) {
    return target == "http://feed.test/home" ? Redirect("302 Found", direct.Url("/end")) : Page("by proxy");
  });
  QtInternetSession session(ProxySettings{proxy.Url(""), "", "127.0.0.1"});
  for (const auto& [url, body] : {std::pair(std::string("http://feed.test/home"), "direct"),
                                  std::pair(direct.Url("/away"), "by proxy")}) {
    const auto request = session.OpenUrl({url, "VB OpenUrl", Plenty});
    WaitUntil([&] { return request->CurrentState() == State::Finished; });
    EXPECT_EQ(request->Body(), body) << url;
  }
}

}  // namespace
}  // namespace brelwin
