// The web as a script: answers to addresses and to posts, set before or after the request, arriving when the
// test says so.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_queue.h"
#include "platform/http.h"

namespace brelwin::test {

// One answer. A status of 0 is a server that cannot be reached.
struct ScriptedAnswer {
  int Status = 200;
  std::string Body = {};
  Milliseconds Connecting{0};     // before the request leaves
  Milliseconds Delay{10};         // from then to the first byte; a negative one: no answer ever
  Milliseconds BetweenPieces{0};  // when not 0, the body comes in pieces of PieceSize this far apart
  std::size_t PieceSize = 1;
  int HiddenPieces = 0;  // that come before the others and give nothing to show: a head, a compressed body
  std::string ErrorText = {};  // set for what breaks off
  int ErrorNumber = 1;
  std::vector<HttpHeader> Headers = {};
};

class ScriptedTransfer final : public HttpTransfer {
 public:
  // `leave` is called when the connection stands; false: the request has not left.
  ScriptedTransfer(EventQueue& queue, ScriptedAnswer script, int& abandoned, std::function<bool()> leave)
      : queue_(queue), script_(std::move(script)), abandoned_(abandoned), leave_(std::move(leave)) {
    if (script_.Connecting == Milliseconds::zero())
      Leave();
    else
      timer_ = queue_.CallAfter(script_.Connecting, [this] { Leave(); });
  }
  ~ScriptedTransfer() override { abandoned_ += isFinished_ ? 0 : 1; }

  bool IsFinished() const override { return isFinished_; }
  std::uint64_t Activity() const override { return activity_; }
  HttpAnswer TakeAnswer() override { return std::exchange(answer_, {}); }

 private:
  void Leave() {
    if (!leave_()) script_ = {.Status = 0, .Delay = Milliseconds(0), .ErrorText = "it was held back"};
    if (script_.Delay >= Milliseconds::zero()) timer_ = queue_.CallAfter(script_.Delay, [this] { Begin(); });
  }

  void Begin() {
    ++activity_;
    if (script_.HiddenPieces-- > 0) {
      timer_ = queue_.CallAfter(script_.BetweenPieces, [this] { Begin(); });
      return;
    }
    answer_ = {.Status = script_.Status, .Reason = "OK", .Headers = script_.Headers};
    if (script_.Status != 0 && script_.BetweenPieces != Milliseconds::zero()) return Piece();
    answer_.Body = script_.Body;
    Finish();
  }

  void Piece() {
    if (answer_.Body.size() == script_.Body.size()) return Finish();
    ++activity_;
    answer_.Body.append(script_.Body.substr(answer_.Body.size(), script_.PieceSize));
    timer_ = queue_.CallAfter(script_.BetweenPieces, [this] { Piece(); });
  }

  void Finish() {
    isFinished_ = true;
    answer_.ErrorText = script_.ErrorText;
    answer_.ErrorNumber = script_.ErrorText.empty() ? 0 : script_.ErrorNumber;
    const auto finished = std::move(Finished);  // may end this
    if (finished) finished();
  }

  EventQueue& queue_;
  ScriptedAnswer script_;
  int& abandoned_;
  std::function<bool()> leave_;
  HttpAnswer answer_;
  bool isFinished_ = false;
  std::uint64_t activity_ = 0;
  TimerHandle timer_;
};

class ScriptedInternet final : public HttpClient {
 public:
  explicit ScriptedInternet(EventQueue& queue) : queue_(queue) {}

  // The next answer of this address; when there is no next one the last is given again.
  void Answer(const std::string& url, ScriptedAnswer answer) { answers_[url].push_back(std::move(answer)); }
  void AnswerAlways(const std::string& url, std::string body) {
    answers_[url] = {ScriptedAnswer{.Body = std::move(body)}};
  }
  void Forget(const std::string& url) { answers_.erase(url); }

  // The answer to the next post, wherever it goes.
  void AnswerPost(ScriptedAnswer answer) { postAnswers_.push_back(std::move(answer)); }

  std::unique_ptr<HttpTransfer> Start(const HttpRequest& request) override {
    const bool isPost = request.Method == "POST";
    const auto leave = [&left = isPost ? Posts : Queries, request] {
      if (request.MayLeave && !request.MayLeave()) return false;
      left.push_back(request);
      return true;
    };
    auto answer = isPost ? TakePostAnswer(request) : TakeAnswer(request.Url);
    return std::make_unique<ScriptedTransfer>(queue_, std::move(answer), Abandoned, leave);
  }

  std::function<ScriptedAnswer(const HttpRequest&)> ServePost;  // makes what AnswerPost has not set
  std::vector<HttpRequest> Queries;                             // that have left
  std::vector<HttpRequest> Posts;
  int Abandoned = 0;  // transfers that were ended before their end

 private:
  static ScriptedAnswer Unreachable() {
    return {.Status = 0, .Delay = Milliseconds(1), .ErrorText = "Connection refused"};
  }

  ScriptedAnswer TakeAnswer(const std::string& url) {
    const auto found = answers_.find(url);
    if (found == answers_.end() || found->second.empty()) return Unreachable();
    auto answer = found->second.front();
    if (found->second.size() > 1) found->second.pop_front();
    return answer;
  }

  ScriptedAnswer TakePostAnswer(const HttpRequest& request) {
    if (postAnswers_.empty()) return ServePost ? ServePost(request) : Unreachable();
    auto answer = std::move(postAnswers_.front());
    postAnswers_.pop_front();
    return answer;
  }

  EventQueue& queue_;
  std::map<std::string, std::deque<ScriptedAnswer>> answers_;
  std::deque<ScriptedAnswer> postAnswers_;
};

}  // namespace brelwin::test
