#include "rehearsed_web.h"

#include <algorithm>
#include <utility>

namespace rehearsal {
namespace {

using brelwin::Milliseconds;

constexpr std::int32_t ConnectionBroke = 2;  // as the client numbers its failures

// "http://host" and "/path?query".
std::pair<std::string, std::string> AddressParts(const std::string& url) {
  const auto path = std::min(url.find('/', url.find("//") + 2), url.size());
  return {url.substr(0, path), url.substr(path)};
}

class Request final : public brelwin::PageRequest {
 public:
  Request(brelwin::EventQueue& queue, Way& way, practice::Exchange exchange)
      : way_(way), exchange_(std::move(exchange)), timer_(queue.CallAfter(way.TimeFor(exchange_), [this] {
          way_.Sent(exchange_);
          body_ = exchange_.Page.SentBody();
          state_ = State::Finished;
        })) {}

  // Who is not waited for has given no answer.
  ~Request() override {
    if (state_ == State::Finished) return;
    exchange_.Page.Status = 0;
    way_.Sent(exchange_, false);
  }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  State CurrentState() const override { return state_; }
  std::uint64_t Activity() const override { return state_ == State::Finished ? 1 : 0; }
  int StatusCode() const override { return state_ == State::Finished ? exchange_.Page.Status : 0; }
  const std::string& Body() const override { return body_; }
  std::string ErrorText() const override {
    return state_ == State::Finished && (exchange_.Page.CutAt || exchange_.Page.Status == 0)
               ? "Connection closed"
               : std::string();
  }

 private:
  Way& way_;
  practice::Exchange exchange_;
  std::string body_;
  State state_ = State::Connecting;
  brelwin::TimerHandle timer_;
};

}  // namespace

practice::Exchange Way::Ask(const std::string& method, const std::string& url, const std::string& body,
                            const std::string& agent) {
  const auto [base, target] = AddressParts(url);
  return site_.Answer({method, target, body, agent, base}, clock_.UTCSeconds());
}

Milliseconds Way::TimeFor(const practice::Exchange& exchange) {
  return Milliseconds(random_.Between(5, 90) + Duration(exchange.Page));
}

std::unique_ptr<brelwin::PageRequest> RehearsedInternet::OpenUrl(const brelwin::PageQuery& query) {
  return std::make_unique<Request>(queue_, way_, way_.Ask("GET", query.Url, {}, query.UserAgent));
}

void RehearsedHttp::Execute(const brelwin::HttpRequest& request) {
  Cancel();
  base_ = AddressParts(request.Url).first;
  Ask(request.Verb, request.Url, request.Body);
}

void RehearsedHttp::Ask(const std::string& method, const std::string& url, const std::string& body) {
  asked_ = way_.Ask(method, url, body, {});
  timer_ = queue_.CallAfter(way_.TimeFor(*asked_), [this] { Finish(); });
}

void RehearsedHttp::Finish() {
  const auto finished = std::move(timer_);
  const auto exchange = *std::exchange(asked_, {});
  way_.Sent(exchange);
  if (!exchange.Page.Location.empty()) return Ask("GET", base_ + exchange.Page.Location, {});
  status_ = exchange.Page.Status;
  isBroken_ = exchange.Page.CutAt || status_ == 0;
  answer_ = exchange.Page.SentBody();
  read_ = 0;
  if (StateChanged) StateChanged(isBroken_ ? brelwin::HttpStateError : brelwin::HttpStateCompleted);
}

std::string RehearsedHttp::GetChunk(std::size_t atMost) {
  auto chunk = answer_.substr(std::min(read_, answer_.size()), atMost);
  read_ += chunk.size();
  return chunk;
}

std::int32_t RehearsedHttp::ResponseCode() const {
  return isBroken_ ? ConnectionBroke : status_;
}

// The server has the post already, and answers somebody who has gone.
void RehearsedHttp::Cancel() {
  timer_ = {};
  if (asked_) way_.Sent(*std::exchange(asked_, {}), false);
}

}  // namespace rehearsal
