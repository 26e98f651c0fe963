// Pages and forms over real connections: what goes out, what comes back, and what never happens twice.
#include "qt/ports/qt_http_transfer.h"

#include <gtest/gtest.h>

#include "self_signed_server.h"
#include "tiny_server.h"
#include "wait_until.h"

namespace brelwin {
namespace {

using test::HangUp;
using test::Page;
using test::Redirect;
using test::TinyServer;

HttpRequest PageAt(const std::string& url) {
  return {.Url = url};
}

HttpRequest FormTo(const std::string& url) {
  return {.Url = url,
          .Method = "POST",
          .Headers = {{"Content-Type", "application/x-www-form-urlencoded"}, {"Accept-Encoding", "identity"}},
          .Body = "a=1&password=secret",
          .Limits = {.MostRedirects = 5},
          .IsRepeatable = false};
}

// Unpacks to a thousand times its length, and to more than is taken in one slice.
constexpr int Letters = 3000000;
QByteArray PackedLetters() {
  return qCompress(QByteArray(Letters, 'a'), 9).mid(4);  // without Qt's own head: a zlib stream
}

class QtHttpClientTest : public ::testing::Test {
 protected:
  HttpAnswer AnswerTo(const HttpRequest& request, HttpClient* client = nullptr) {
    const auto transfer = (client == nullptr ? client_ : *client).Start(request);
    Wait([&] { return transfer->IsFinished(); });
    return transfer->TakeAnswer();
  }

  void Wait(const std::function<bool()>& condition) { EXPECT_TRUE(test::WaitUntil(queue_, condition)); }
  void WaitAWhile() {
    for (int look = 0; look < 5; ++look) queue_.WaitForEvents(Milliseconds(20));
  }

  QtEventQueue queue_;
  TinyServer server_;
  QtHttpClient client_{ProxySettings{}};
};

TEST_F(QtHttpClientTest, SendsWhatWasAskedForAndNothingOfItsOwn) {
  server_.Answer = [](const QByteArray&) { return Page("hello"); };
  auto page = PageAt(server_.Url("/RssFeed?q=1"));
  AnswerTo(page);
  page.Headers = {{"If-None-Match", "\"7\""}};
  AnswerTo(page);
  AnswerTo(FormTo(server_.Url("/form")));
  ASSERT_EQ(server_.Requests.size(), 3U);  // nothing came from a cache
  for (const auto& request : server_.Requests) {
    EXPECT_TRUE(request.contains("\r\nUser-Agent: VB OpenUrl\r\n")) << request.toStdString();
    EXPECT_TRUE(request.contains("\r\nAccept-Language: en\r\n"));  // whatever the locale
  }
  EXPECT_TRUE(server_.Requests[0].startsWith("GET /RssFeed?q=1 HTTP/1.1\r\n"));
  EXPECT_FALSE(server_.Requests[0].contains("If-"));
  EXPECT_TRUE(server_.Requests[1].contains("\r\nIf-None-Match: \"7\"\r\n"));
  EXPECT_TRUE(server_.Requests[2].startsWith("POST /form HTTP/1.1\r\n"));
  EXPECT_TRUE(server_.Requests[2].contains("\r\nContent-Type: application/x-www-form-urlencoded\r\n"));
  EXPECT_TRUE(server_.Requests[2].endsWith("\r\n\r\na=1&password=secret"));
}

TEST_F(QtHttpClientTest, AsksWhetherTheFormMayLeaveWhenTheConnectionStands) {
  auto form = FormTo(server_.Url("/"));
  form.MayLeave = [] { return false; };
  EXPECT_EQ(AnswerTo(form).ErrorText, "it was held back");
  EXPECT_TRUE(server_.Requests.empty());
}

TEST_F(QtHttpClientTest, ReadsAnyCompleteAnswer) {
  server_.Answer = [](const QByteArray& path) -> QByteArray {
    if (path == "/chunked")
      return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n4\r\ndefg\r\n0\r\n\r\n";
    if (path == "/packed") return Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n");
    if (path == "/until-close") return "HTTP/1.0 200 OK\r\n\r\nto the end";
    if (path == "/304") return "HTTP/1.1 304 Not Modified\r\nETag: \"7\"\r\nContent-Length: 9\r\n\r\n";
    return Page(path.mid(1), path.mid(1) + " Word", "Retry-After: 60\r\n");
  };
  const std::tuple<std::string, int, std::string> cases[] = {
      {"/chunked", 200, "abcdefg"}, {"/until-close", 200, "to the end"}, {"/304", 304, ""}};
  for (const auto& ask : {PageAt, FormTo}) {
    for (const auto& [path, status, body] : cases) {
      const auto answer = AnswerTo(ask(server_.Url(path)));
      EXPECT_EQ(std::tuple(answer.Status, answer.Body, answer.ErrorText), std::tuple(status, body, ""))
          << path;
    }
    for (const int status : {200, 400, 401, 403, 404, 407, 409, 410, 418, 429, 500, 501, 503}) {
      const auto answer = AnswerTo(ask(server_.Url("/" + std::to_string(status))));
      EXPECT_EQ(std::tuple(answer.Status, answer.Body, answer.Reason, answer.ErrorText),
                std::tuple(status, std::to_string(status), "Word", ""));
      EXPECT_EQ(answer.Header("retry-after"), "60");
    }
  }
  EXPECT_EQ(AnswerTo(PageAt(server_.Url("/304"))).Header("ETag"), "\"7\"");
  EXPECT_EQ(AnswerTo(PageAt(server_.Url("/packed"))).Body, std::string(Letters, 'a'));
  for (int round = 0; round < 20; ++round)  // the end may come with the last bytes or after them
    ASSERT_EQ(AnswerTo(FormTo(server_.Url("/until-close"))).ErrorText, "");
}

// Whatever goes wrong, a form reaches the server once at most.
TEST_F(QtHttpClientTest, TellsWhatIsNotCompleteAndNeverSendsAFormAgain) {
  server_.Answer = [](const QByteArray& path) -> QByteArray {
    if (path == "/cut") return Page("whole").chopped(2);
    if (path == "/cut500") return Page("whole", "500 Oops").chopped(2);
    if (path == "/cut-chunk") return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\nabc";
    if (path == "/interim") return "HTTP/1.1 103 Early Hints\r\n\r\n" + Page("whole");
    if (path == "/cut-head") return "HTTP/1.1 200 OK\r\nContent-Le";
    if (path == "/nonsense") return "what?\r\n\r\n";
    return HangUp;
  };
  for (const std::string path :
       {"/cut", "/cut500", "/cut-chunk", "/cut-head", "/interim", "/nonsense", "/close"}) {
    server_.Requests.clear();
    const auto answer = AnswerTo(FormTo(server_.Url(path)));
    EXPECT_TRUE(answer.ErrorNumber != 0 && !answer.ErrorText.empty()) << path;
    EXPECT_EQ(server_.Requests.size(), 1U) << path;
  }
  // Of chunks that break off Qt does not always tell, when it meets them and the end at once.
  for (const std::string path : {"/cut", "/cut500", "/cut-head", "/interim", "/nonsense", "/close"})
    EXPECT_NE(AnswerTo(PageAt(server_.Url(path))).ErrorText, "") << path;
  EXPECT_EQ(AnswerTo(PageAt(server_.Url("/cut"))).Body, "who");
  for (const std::string url : {"http://127.0.0.1:1/", "file:///etc/passwd", "data:,x", "nonsense", ""}) {
    for (const auto& ask : {PageAt, FormTo}) {
      const auto answer = AnswerTo(ask(url));
      EXPECT_EQ(std::pair(answer.Status, answer.Body), std::pair(0, std::string())) << url;
      EXPECT_TRUE(answer.ErrorNumber != 0 && !answer.ErrorText.empty()) << url;
    }
  }
}

// A redirect is no answer; a form stays with the server it was meant for.
TEST_F(QtHttpClientTest, FollowsRedirectsButKeepsTheFormAtHome) {
  TinyServer other;
  other.Answer = [](const QByteArray&) { return Page("elsewhere"); };
  server_.Answer = [&](const QByteArray& path) -> QByteArray {
    if (path == "/see") return Redirect("303 See Other", "/end");
    if (path == "/found") return Redirect("302 Found", other.Url("/", "localhost"));
    if (path == "/same") return Redirect("307 Temporary Redirect", server_.Url("/end"));
    if (path == "/emptied") return Redirect("302 Found", "/away");
    if (path == "/away") return Redirect("308 Permanent Redirect", other.Url("/", "localhost"));
    if (path == "/nowhere") return Page("", "302 Found");
    if (path == "/closed") return Redirect("302 Found", "http://127.0.0.1:1/");
    if (path == "/strange") return Redirect("302 Found", "file:///etc/passwd");
    if (path == "/silent") return Redirect("302 Found", "/never");
    if (path.startsWith("/steps") && path != "/steps5")
      return Redirect("301 Moved", "/steps" + std::to_string(path.mid(6).toInt() + 1));
    return path == "/never" ? QByteArray() : Page("end");
  };
  for (const std::string path : {"/see", "/same", "/steps0"}) {
    EXPECT_EQ(AnswerTo(PageAt(server_.Url(path))).Body, "end") << path;
    server_.Requests.clear();
    EXPECT_EQ(AnswerTo(FormTo(server_.Url(path))).Body, "end") << path;
    EXPECT_EQ(server_.Requests.back().startsWith("POST"), path == "/same");
    EXPECT_EQ(server_.Requests.back().contains("secret"), path == "/same");
    EXPECT_EQ(server_.Requests.back().contains("Content-Type"), path == "/same");
    EXPECT_EQ(server_.Requests.size(), path == "/steps0" ? 6U : 2U) << "each address is asked once";
  }
  for (const std::string path : {"/found", "/emptied"})  // nothing of the form is left to keep
    EXPECT_EQ(AnswerTo(FormTo(server_.Url(path))).Body, "elsewhere");
  EXPECT_EQ(AnswerTo(PageAt(server_.Url("/away"))).Body, "elsewhere");
  EXPECT_EQ(other.Requests.size(), 3U);
  for (const std::string path : {"/away", "/closed", "/strange", "/steps-1"}) {
    const auto answer = AnswerTo(FormTo(server_.Url(path)));
    EXPECT_EQ(answer.Status, 0) << path;
    EXPECT_NE(answer.ErrorText, "") << path;
  }
  EXPECT_EQ(other.Requests.size(), 3U);
  const auto nowhere = AnswerTo(FormTo(server_.Url("/nowhere")));
  EXPECT_TRUE(nowhere.Status == 302 && nowhere.ErrorNumber != 0);
  const auto waiting = client_.Start(PageAt(server_.Url("/silent")));
  Wait([&] { return server_.Requests.back().startsWith("GET /never"); });
  EXPECT_EQ(waiting->TakeAnswer().Status, 0);
}

TEST_F(QtHttpClientTest, KeepsNoMoreThanAskedFor) {
  server_.Answer = [](const QByteArray& path) {
    return path == "/packed" ? Page(PackedLetters(), "200 OK", "Content-Encoding: deflate\r\n")
                             : Page(QByteArray(100, 'x'));
  };
  auto page = PageAt(server_.Url("/plain"));
  page.Limits.MaximumBytes = 100;
  EXPECT_EQ(AnswerTo(page).ErrorText, "");
  page.Limits.MaximumBytes = 99;
  const auto cut = AnswerTo(page);
  EXPECT_EQ(cut.Body, std::string(99, 'x'));
  EXPECT_NE(cut.ErrorText, "");
  page.Url = server_.Url("/packed");
  EXPECT_EQ(AnswerTo(page).Body.size(), 99U);
}

// A form's name and password for the proxy come with it: asked for them only after the form has gone, Qt
// could not send the form again.
TEST_F(QtHttpClientTest, EveryAddressOnTheWayHasItsOwnProxy) {
  TinyServer proxy([&](const QByteArray& target) {
    return target == "http://feed.test/home" ? Redirect("302 Found", server_.Url("/end")) : Page("by proxy");
  });
  server_.Answer = [](const QByteArray& target) {
    return target == "/away" ? Redirect("302 Found", "http://feed.test/end") : Page("direct");
  };
  QtHttpClient client(ProxySettings{proxy.Url("").insert(7, "user:pass@"), "", "127.0.0.1"});
  EXPECT_EQ(AnswerTo(PageAt("http://feed.test/home"), &client).Body, "direct");
  EXPECT_EQ(AnswerTo(PageAt(server_.Url("/away")), &client).Body, "by proxy");
  EXPECT_EQ(AnswerTo(FormTo("http://form.test/form"), &client).Body, "by proxy");
  EXPECT_TRUE(proxy.Requests.back().startsWith("POST http://form.test/form "));
  EXPECT_TRUE(proxy.Requests.back().contains("\r\nProxy-Authorization: Basic dXNlcjpwYXNz\r\n"));
}

TEST_F(QtHttpClientTest, AsksNobodyWhoseCertificateNobodyVouchesFor) {
  const test::SelfSignedServer server;
  for (const auto& ask : {PageAt, FormTo}) {
    const auto answer = AnswerTo(ask(server.Url()));
    EXPECT_EQ(answer.Status, 0);
    EXPECT_NE(answer.ErrorText.find("certificate"), std::string::npos) << answer.ErrorText;
  }
}

TEST_F(QtHttpClientTest, TheEndOfATransferEndsItsConnection) {
  server_.Answer = [](const QByteArray& path) { return path == "/never" ? QByteArray() : Page("end"); };
  auto transfer = client_.Start(FormTo(server_.Url("/never")));
  bool hasTold = false;
  transfer->Finished = [&] { hasTold = true; };
  Wait([&] { return server_.Requests.size() == 1; });
  transfer.reset();
  Wait([&] { return server_.OpenConnections == 0; });
  client_.Start(FormTo(server_.Url("/end"))).reset();  // before it has left
  WaitAWhile();
  EXPECT_EQ(server_.Requests.size(), 1U);
  EXPECT_FALSE(hasTold);

  transfer = client_.Start(PageAt(server_.Url("/end")));
  transfer->Finished = [&] {  // the next one may begin where the last one's end is told
    transfer = client_.Start(PageAt(server_.Url("/end")));
    hasTold = true;
  };
  Wait([&] { return hasTold && transfer->IsFinished(); });
  EXPECT_EQ(transfer->TakeAnswer().Body, "end");
}

TEST_F(QtHttpClientTest, NoticesTheFirstBytesOfAHeadAndOfAPackedBody) {
  QTcpServer server;
  server.listen(QHostAddress::LocalHost);
  const auto transfer =
      client_.Start(PageAt("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/"));
  Wait([&] { return server.hasPendingConnections(); });
  auto* const socket = server.nextPendingConnection();
  Wait([&] { return socket->bytesAvailable() > 0; });
  const auto isQuiet = [&] {
    const auto before = transfer->Activity();
    for (int look = 0; look < 4; ++look) WaitAWhile();
    return transfer->Activity() == before;
  };
  const auto packed = PackedLetters();
  for (const auto& piece :
       {QByteArray("HTTP/1.1 20"), QByteArray("0 OK\r\nContent-Encoding: deflate\r\n\r\n"), packed.left(1),
        packed.mid(1, 1)}) {
    Wait(isQuiet);
    const auto before = transfer->Activity();
    socket->write(piece);
    Wait([&] { return transfer->Activity() != before; });
  }
  Wait(isQuiet);
  EXPECT_TRUE(isQuiet());
}

}  // namespace
}  // namespace brelwin
