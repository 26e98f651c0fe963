#include "rehearsed_web.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace rehearsal {
namespace {

constexpr int ConnectionBroke = 2;  // as the client numbers its failures

// "http://host" and "/path?query".
std::pair<std::string, std::string> AddressParts(const std::string& url) {
  const auto path = std::min(url.find('/', url.find("//") + 2), url.size());
  return {url.substr(0, path), url.substr(path)};
}

std::vector<brelwin::HttpHeader> HeadersOf(const practice::Reply& page) {
  std::vector<brelwin::HttpHeader> headers;
  if (!page.Tag.empty()) headers.push_back({"ETag", page.Tag});
  if (!page.RetryAfter.empty()) headers.push_back({"Retry-After", page.RetryAfter});
  return headers;
}

}  // namespace

class RehearsedWeb::Transfer final : public brelwin::HttpTransfer {
 public:
  Transfer(RehearsedWeb& web, const brelwin::HttpRequest& request)
      : web_(web),
        base_(AddressParts(request.Url).first),
        agent_(request.UserAgent),
        isForm_(!request.IsRepeatable),
        knownTag_(brelwin::HeaderValue(request.Headers, "If-None-Match").value_or("")) {
    const bool isHeldBack = request.MayLeave && !request.MayLeave();
    isHeldBack ? HoldBack() : Ask(request.Method, request.Url, request.Body);
  }

  // The server has a form already, and answers somebody who has gone; a page that is not waited for is no
  // answer.
  ~Transfer() override {
    if (!asked_) return;
    if (!isForm_) asked_->Page.Status = 0;
    web_.site_.Sent(*asked_, false);
  }

  bool IsFinished() const override { return !asked_; }
  std::uint64_t Activity() const override { return asked_ ? 0 : 1; }
  brelwin::HttpAnswer TakeAnswer() override { return std::exchange(answer_, {}); }

 private:
  void Ask(const std::string& method, const std::string& url, const std::string& body) {
    const auto [base, target] = AddressParts(url);
    asked_ = web_.site_.Answer({method, target, body, agent_, base, knownTag_}, web_.clock_.UTCSeconds());
    timer_ = web_.queue_.CallAfter(web_.TimeFor(*asked_), [this] { Finish(); });
  }

  void HoldBack() {
    answer_ = {.ErrorText = "held back", .ErrorNumber = ConnectionBroke};
    timer_ = web_.queue_.CallAfter(brelwin::Milliseconds(1), [this] { TellFinished(); });
  }

  void TellFinished() {
    const auto finished = std::move(Finished);  // may end this
    if (finished) finished();
  }

  void Finish() {
    const auto running = std::move(timer_);
    const auto exchange = *std::exchange(asked_, {});
    const auto& page = exchange.Page;
    web_.site_.Sent(exchange);
    if (!page.Location.empty()) return Ask("GET", base_ + page.Location, {});
    answer_ = {.Status = page.Status,
               .Reason = "OK",
               .Headers = HeadersOf(page),
               .Body = std::string(page.SentBody())};
    if (page.CutAt || page.Status == 0) {
      answer_.ErrorText = "Connection closed";
      answer_.ErrorNumber = ConnectionBroke;
    }
    TellFinished();
  }

  RehearsedWeb& web_;
  const std::string base_;
  const std::string agent_;
  const bool isForm_;
  const std::string knownTag_;
  std::optional<practice::Exchange> asked_;  // until its answer has come
  brelwin::HttpAnswer answer_;
  brelwin::TimerHandle timer_;
};

std::unique_ptr<brelwin::HttpTransfer> RehearsedWeb::Start(const brelwin::HttpRequest& request) {
  return std::make_unique<Transfer>(*this, request);
}

brelwin::Milliseconds RehearsedWeb::TimeFor(const practice::Exchange& exchange) {
  return brelwin::Milliseconds(random_.Between(5, 90) + Duration(exchange.Page));
}

}  // namespace rehearsal
