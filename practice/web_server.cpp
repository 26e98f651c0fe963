#include "web_server.h"

#include <httplib.h>
#include <sys/socket.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace practice {
namespace {

using httplib::Request;
using httplib::Response;
using std::string;

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

Asked AskedBy(const Request& request) {
  return {request.method,
          request.target,
          request.body,
          request.get_header_value("User-Agent"),
          "http://" + request.get_header_value("Host"),
          request.get_header_value("If-None-Match")};
}

// The library's own options would let a second network share the port.
void KeepThePortToOurselves(int socket) {
  const int yes = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

void SetHeaders(const Reply& page, Response& response) {
  if (!page.Location.empty()) response.set_header("Location", page.Location);
  if (!page.Tag.empty()) response.set_header("ETag", page.Tag);
  if (!page.RetryAfter.empty()) response.set_header("Retry-After", page.RetryAfter);
}

bool ComesAtOnce(const Reply& page) {
  return page.PieceSize == 0 && !page.CutAt;
}

}  // namespace

struct WebServer::Implementation {
  explicit Implementation(Site& theSite) : site(theSite) {
    server.set_socket_options(KeepThePortToOurselves);
    server.set_keep_alive_timeout(1);
    const auto answer = [this](const Request& request, Response& response) { Answer(request, response); };
    server.Get(".*", answer);
    server.Post(".*", answer);
  }

  void Answer(const Request& request, Response& response) {
    auto exchange = std::make_shared<Exchange>(site.Answer(AskedBy(request), Now()));
    auto& page = exchange->Page;
    if (!Pause(page.Wait)) return;
    if (page.Status == 0) page = {.CutAt = 0};  // the nearest that the library can do to no answer
    response.status = page.Status;
    SetHeaders(page, response);
    if (ComesAtOnce(page)) {
      // Before the answer leaves, so that whoever has it finds it in the ledger.
      site.Sent(*exchange);
      response.set_content(page.Body, page.Type);
    } else {
      response.set_content_provider(
          std::max<std::size_t>(1, page.Body.size()), page.Type,
          [this, exchange](std::size_t offset, std::size_t, httplib::DataSink& sink) {
            return SendPiece(*exchange, offset, sink);
          });
    }
  }

  // False ends the connection.
  bool SendPiece(const Exchange& exchange, std::size_t offset, httplib::DataSink& sink) {
    const auto body = exchange.Page.SentBody();
    const auto piece = body.substr(std::min(offset, body.size()), exchange.Page.SizeOfPiece());
    const bool isWanted = offset == 0 || Pause(exchange.Page.PieceGap);
    const bool isLast = offset + piece.size() >= body.size();
    if (isLast || !isWanted) site.Sent(exchange, isWanted);
    if (!piece.empty() && !sink.write(piece.data(), piece.size())) return false;
    return isWanted && !(isLast && exchange.Page.CutAt);
  }

  // Waits, but not longer than until the server stops; then false.
  bool Pause(std::int64_t milliseconds) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!stopping && std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_until(
          std::min(end, std::chrono::steady_clock::now() + std::chrono::milliseconds(50)));
    return !stopping;
  }

  Site& site;
  httplib::Server server;
  std::atomic<bool> stopping = false;
  std::atomic<bool> ended = false;
};

WebServer::WebServer(Site& site) : implementation_(std::make_unique<Implementation>(site)) {}
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
  implementation_->stopping = true;
  while (!implementation_->ended) {
    implementation_->server.stop();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace practice
