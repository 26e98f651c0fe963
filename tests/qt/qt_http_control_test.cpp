#include "qt/ports/qt_http_control.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "self_signed_server.h"
#include "tiny_server.h"
#include "wait_until.h"

namespace brelwin {
namespace {

using test::HangUp;
using test::Page;
using test::Redirect;
using test::TinyServer;

class QtHttpControlTest : public ::testing::Test {
 protected:
  QtHttpControlTest() {
    control_.StateChanged = [this](std::int16_t state) {
      if (state >= HttpStateError) ends_.push_back(state);
    };
  }

  void Post(const std::string& url) {
    control_.Execute({url, "POST", "a=1&password=secret", "Content-Type: application/x-www-form-urlencoded"});
  }

  // Posts and waits for the end: its state, code and words, and the answer.
  std::string Result(const std::string& url) {
    ends_.clear();
    Post(url);
    Wait([this] { return !ends_.empty(); });
    if (ends_.empty()) return "nothing";
    std::string body;
    for (auto chunk = control_.GetChunk(3); !chunk.empty(); chunk = control_.GetChunk(3)) body += chunk;
    return std::to_string(ends_[0]) + " " + std::to_string(control_.ResponseCode()) + " " + body;
  }

  void Wait(const std::function<bool()>& condition) { test::WaitUntil(queue_, condition); }

  QtEventQueue queue_;
  TinyServer server_;
  QtHttpControl control_{ProxySettings{}};
  std::vector<std::int16_t> ends_;
};

TEST_F(QtHttpControlTest, PostsTheFormAndReadsAnyCompleteAnswer) {
  server_.Answer = [](const QByteArray& path) -> QByteArray {
    if (path == "/chunked")
      return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n4\r\ndefg\r\n0\r\n\r\n";
    if (path == "/until-close") return "HTTP/1.0 200 OK\r\n\r\nto the end";
    return Page("body of " + path, path.mid(1) + " Word");
  };
  EXPECT_EQ(Result(server_.Url("/200")), "12 200 body of /200");
  EXPECT_EQ(control_.ResponseInfo(), "Word");
  const auto request = server_.Requests[0];
  EXPECT_TRUE(request.startsWith("POST /200 HTTP/1.1\r\n"));
  EXPECT_TRUE(request.contains("\r\nUser-Agent: VB OpenUrl\r\n")) << request.toStdString();
  EXPECT_TRUE(request.contains("\r\nAccept-Language: en\r\n"));
  EXPECT_TRUE(request.contains("\r\nContent-Type: application/x-www-form-urlencoded\r\n"));
  EXPECT_TRUE(request.endsWith("\r\n\r\na=1&password=secret"));
  for (const std::string status :
       {"400", "401", "403", "404", "407", "409", "410", "418", "429", "500", "501", "503"})
    EXPECT_EQ(Result(server_.Url("/" + status)), "12 " + status + " body of /" + status);
  EXPECT_EQ(Result(server_.Url("/chunked")), "12 200 abcdefg");
  for (int round = 0; round < 20; ++round)  // the end may come with the last bytes or after them
    ASSERT_EQ(Result(server_.Url("/until-close")), "12 200 to the end") << control_.ResponseInfo();
}

TEST_F(QtHttpControlTest, AsksWhetherTheFormMayLeaveWhenTheConnectionStands) {
  control_.Execute({server_.Url("/"), "POST", "a=1", {}, [] { return false; }});
  Wait([this] { return !ends_.empty(); });
  EXPECT_EQ(ends_, std::vector{HttpStateError});
  EXPECT_EQ(control_.ResponseInfo(), "it was held back");
  EXPECT_TRUE(server_.Requests.empty());
}

// Whatever goes wrong, the form reaches the server once at most.
TEST_F(QtHttpControlTest, TellsWhatIsNotCompleteAndNeverSendsItAgain) {
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
    const auto result = Result(server_.Url(path));
    EXPECT_TRUE(result.starts_with("11 ")) << path << ": " << result;
    EXPECT_TRUE(control_.ResponseCode() != 0 && !control_.ResponseInfo().empty()) << path;
    EXPECT_EQ(server_.Requests.size(), 1U) << path;
  }
  EXPECT_TRUE(Result("http://127.0.0.1:1/").starts_with("11 "));
  EXPECT_TRUE(Result("file:///etc/passwd").starts_with("11 "));
  EXPECT_TRUE(Result("").starts_with("11 "));
}

TEST_F(QtHttpControlTest, FollowsRedirectsButKeepsTheFormAtHome) {
  TinyServer other;
  other.Answer = [](const QByteArray&) { return Page("elsewhere"); };
  server_.Answer = [&](const QByteArray& path) -> QByteArray {
    if (path == "/see") return Redirect("303 See Other", "/end");
    if (path == "/found") return Redirect("302 Found", other.Url("/", "localhost"));
    if (path == "/same") return Redirect("307 Temporary Redirect", server_.Url("/end"));
    if (path == "/emptied") return Redirect("302 Found", "/away");
    if (path == "/away") return Redirect("308 Permanent Redirect", other.Url("/", "localhost"));
    if (path == "/nowhere") return Page("", "302 Found");
    if (path == "/strange") return Redirect("302 Found", "file:///etc/passwd");
    if (path.startsWith("/round"))
      return Redirect("301 Moved", "/round" + std::to_string(path.mid(6).toInt() + 1));
    if (path.startsWith("/steps") && path != "/steps5")
      return Redirect("301 Moved", "/steps" + std::to_string(path.mid(6).toInt() + 1));
    return Page("end");
  };
  EXPECT_EQ(Result(server_.Url("/see")), "12 200 end");
  EXPECT_TRUE(server_.Requests.back().startsWith("GET /end "));
  EXPECT_FALSE(server_.Requests.back().contains("secret"));
  EXPECT_EQ(Result(server_.Url("/same")), "12 200 end");
  EXPECT_TRUE(server_.Requests.back().startsWith("POST /end "));
  EXPECT_TRUE(server_.Requests.back().endsWith("secret"));
  EXPECT_EQ(Result(server_.Url("/found")), "12 200 elsewhere");
  EXPECT_FALSE(other.Requests.back().contains("secret"));
  EXPECT_EQ(Result(server_.Url("/emptied")), "12 200 elsewhere");  // nothing of the form is left to keep
  EXPECT_EQ(Result(server_.Url("/steps0")), "12 200 end");
  for (const std::string path : {"/away", "/nowhere", "/strange", "/round0"})
    EXPECT_TRUE(Result(server_.Url(path)).starts_with("11 ")) << path;
  EXPECT_EQ(other.Requests.size(), 2U);
}

// Asked for its name only after the form has gone, the client could not send the form again.
TEST_F(QtHttpControlTest, TellsAProxyOfPlainAddressesAtOnceWhoAsks) {
  QtHttpControl control(ProxySettings{server_.Url("").insert(7, "user:pass@"), {}, {}});
  server_.Answer = [](const QByteArray&) { return Page("by the proxy"); };
  std::int16_t end = 0;
  control.StateChanged = [&end](std::int16_t state) { end = state; };
  control.Execute({"http://spotlite.test/form", "POST", "a=1", {}});
  Wait([&end] { return end >= HttpStateError; });
  EXPECT_EQ(end, HttpStateCompleted) << control.ResponseInfo();
  ASSERT_EQ(server_.Requests.size(), 1U);
  EXPECT_TRUE(server_.Requests[0].startsWith("POST http://spotlite.test/form "));
  EXPECT_TRUE(server_.Requests[0].contains("\r\nProxy-Authorization: Basic dXNlcjpwYXNz\r\n"));
}

TEST_F(QtHttpControlTest, PostsNothingWhereNobodyVouchesForTheCertificate) {
  const test::SelfSignedServer server;
  const auto result = Result(server.Url());
  EXPECT_TRUE(result.starts_with("11 ")) << result;
  EXPECT_NE(control_.ResponseInfo().find("certificate"), std::string::npos) << control_.ResponseInfo();
}

TEST_F(QtHttpControlTest, TellsNothingOfARequestThatWasEnded) {
  server_.Answer = [](const QByteArray& path) -> QByteArray {
    return path == "/never" ? QByteArray() : Page("second");
  };
  Post(server_.Url("/never"));
  Wait([this] { return server_.Requests.size() == 1; });
  EXPECT_EQ(Result(server_.Url("/second")), "12 200 second");
  EXPECT_EQ(ends_.size(), 1U);

  Post(server_.Url("/second"));
  control_.Cancel();
  for (int look = 0; look < 5; ++look) queue_.WaitForEvents(Milliseconds(20));
  EXPECT_EQ(ends_.size(), 1U);
  EXPECT_EQ(server_.Requests.size(), 2U);  // it had not left yet
  EXPECT_EQ(control_.GetChunk(10), "");
}

// The next form may be posted from inside the telling of the last one's end.
TEST_F(QtHttpControlTest, CanBeUsedWhileItTells) {
  server_.Answer = [](const QByteArray& path) { return Page("body of " + path); };
  control_.StateChanged = [this](std::int16_t state) {
    if (state < HttpStateError) return;
    ends_.push_back(state);
    if (ends_.size() < 3) Post(server_.Url("/again"));
  };
  Post(server_.Url("/first"));
  Wait([this] { return ends_.size() == 3; });
  EXPECT_EQ(server_.Requests.size(), 3U);
  EXPECT_EQ(control_.GetChunk(100), "body of /again");
}

}  // namespace
}  // namespace brelwin
