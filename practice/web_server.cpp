#include "web_server.h"

#include <httplib.h>
#include <sys/socket.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <thread>

#include "pages.h"

namespace practice {
namespace {

using httplib::Request;
using httplib::Response;
using std::string;

constexpr std::size_t ItemsOfAPage = 100;

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

std::int64_t NumberOr0(const string& text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

string BaseAddress(const Request& request) {
  return "http://" + request.get_header_value("Host");
}

void AnswerHtml(Response& response, const string& page) {
  response.set_content(page, "text/html; charset=utf-8");
}

string Summary(const Request& request) {
  return request.method + " " + request.target + " agent=\"" + request.get_header_value("User-Agent") + "\"";
}

// The library's own options would let a second network share the port.
void KeepThePortToOurselves(int socket) {
  const int yes = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

}  // namespace

struct WebServer::Implementation {
  Implementation(SharedFeed& theFeed, Ledger& theLedger, Playing thePlaying)
      : feed(theFeed), ledger(theLedger), playing(thePlaying) {
    server.set_socket_options(KeepThePortToOurselves);
    server.set_keep_alive_timeout(1);
    // Before the answer leaves, so that whoever has it finds it in the ledger.
    server.set_post_routing_handler([this](const Request& request, Response& response) {
      if (!request.body.empty()) ledger.Write("received", "body " + request.body);
      ledger.Write("served", std::to_string(response.status) + " " + request.target + " " +
                                 std::to_string(response.body.size()) + " bytes " +
                                 response.get_header_value("X-Newest"));
    });
    server.set_pre_routing_handler([this](const Request& request, Response&) {
      ledger.Write("received", Summary(request));
      return httplib::Server::HandlerResponse::Unhandled;
    });
    AddPages();
  }

  void AddPages() {
    server.Get("/RssFeed", [this](const Request& request, Response& response) {
      const auto spots = Newest(response);
      response.set_content(RssPage(spots, Now(), BaseAddress(request)), "application/rss+xml; charset=utf-8");
    });
    server.Get("/search.json", [this](const Request& request, Response& response) {
      const auto since = NumberOr0(request.get_param_value("since_id"));
      response.set_content(SearchPage(Newest(response), since), "application/json; charset=utf-8");
    });
    server.Get("/alerts.php", [this](const Request&, Response& response) {
      AnswerHtml(response, AlertsPage(Announcements(playing, Now())));
    });
    server.Get("/summits.php", [](const Request& request, Response& response) {
      AnswerHtml(response, SummitPage(request.get_param_value("summit")));
    });
    // What is posted to nobody is still read, and so stands in the ledger.
    server.Post(".*", [](const Request&, Response& response) { response.status = 404; });
    server.Get("/db/(.+)", [](const Request& request, Response& response) {
      AnswerHtml(response, OperatorPage(request.matches[1].str()));
    });
  }

  // The newest spots; a header names the first of them, for the ledger and for a person with a browser.
  std::vector<PublishedSpot> Newest(Response& response) {
    auto spots = feed.Newest(Now(), ItemsOfAPage);
    if (!spots.empty()) response.set_header("X-Newest", TitleOf(spots.front().What));
    return spots;
  }

  SharedFeed& feed;
  Ledger& ledger;
  Playing playing;
  httplib::Server server;
  std::atomic<bool> ended = false;
};

WebServer::WebServer(SharedFeed& feed, Ledger& ledger, Playing playing)
    : implementation_(std::make_unique<Implementation>(feed, ledger, playing)) {}
WebServer::~WebServer() = default;

int WebServer::Bind(int port) {
  constexpr auto loopback = "127.0.0.1";
  if (port != 0) return implementation_->server.bind_to_port(loopback, port) ? port : 0;
  return std::max(0, implementation_->server.bind_to_any_port(loopback));
}

bool WebServer::Serve() {
  const bool served = implementation_->server.listen_after_bind();
  implementation_->ended = true;
  return served;
}

// The library forgets a stop that comes before it has begun to serve, so it is told until it has ended.
void WebServer::Stop() {
  while (!implementation_->ended) {
    implementation_->server.stop();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace practice
