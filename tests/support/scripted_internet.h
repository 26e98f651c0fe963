// The web as a script: answers to addresses, set before or after the request, arriving when the test says so.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_queue.h"
#include "platform/internet_session.h"

namespace brelwin::test {

// One answer. A status of 0 is a server that cannot be reached.
struct ScriptedAnswer {
  int Status = 200;
  std::string Body = {};
  Milliseconds Delay{10};         // until the first byte
  Milliseconds BetweenPieces{0};  // when not 0, the body comes in pieces of PieceSize this far apart
  std::size_t PieceSize = 1;
  int HiddenPieces = 0;        // that come before the others and give nothing to show: a head, a packed body
  std::string ErrorText = {};  // set for what breaks off
};

class ScriptedInternet final : public InternetSession {
 public:
  explicit ScriptedInternet(EventQueue& queue) : queue_(queue) {}

  // The next answer of this address; when there is no next one the last is given again.
  void Answer(const std::string& url, ScriptedAnswer answer) { answers_[url].push_back(std::move(answer)); }
  void AnswerAlways(const std::string& url, std::string body) {
    answers_[url] = {ScriptedAnswer{.Body = std::move(body)}};
  }
  void Forget(const std::string& url) { answers_.erase(url); }

  std::unique_ptr<PageRequest> OpenUrl(const PageQuery& query) override {
    Queries.push_back(query);
    return std::make_unique<Request>(queue_, TakeAnswer(query.Url));
  }

  std::vector<PageQuery> Queries;

 private:
  class Request final : public PageRequest {
   public:
    Request(EventQueue& queue, ScriptedAnswer answer) : queue_(queue), answer_(std::move(answer)) {
      if (answer_.Delay >= Milliseconds::zero())
        timer_ = queue_.CallAfter(answer_.Delay, [this] { Begin(); });
    }

    State CurrentState() const override { return state_; }
    std::uint64_t Activity() const override { return activity_; }
    int StatusCode() const override { return state_ == State::Connecting ? 0 : answer_.Status; }
    const std::string& Body() const override { return body_; }
    std::string ErrorText() const override {
      return state_ == State::Finished ? answer_.ErrorText : std::string();
    }

   private:
    void Begin() {
      ++activity_;
      if (answer_.HiddenPieces-- > 0) {
        timer_ = queue_.CallAfter(answer_.BetweenPieces, [this] { Begin(); });
        return;
      }
      state_ = State::Receiving;
      if (answer_.Status == 0) return Finish();
      if (answer_.BetweenPieces == Milliseconds::zero()) {
        body_ = answer_.Body;
        return Finish();
      }
      Piece();
    }

    void Piece() {
      if (body_.size() == answer_.Body.size()) return Finish();
      ++activity_;
      body_.append(answer_.Body.substr(body_.size(), answer_.PieceSize));
      timer_ = queue_.CallAfter(answer_.BetweenPieces, [this] { Piece(); });
    }

    void Finish() { state_ = State::Finished; }

    EventQueue& queue_;
    ScriptedAnswer answer_;
    std::string body_;
    State state_ = State::Connecting;
    std::uint64_t activity_ = 0;
    TimerHandle timer_;
  };

  ScriptedAnswer TakeAnswer(const std::string& url) {
    const auto found = answers_.find(url);
    if (found == answers_.end() || found->second.empty())
      return {0, {}, Milliseconds(1), {}, 1, 0, "Connection refused"};
    auto answer = found->second.front();
    if (found->second.size() > 1) found->second.pop_front();
    return answer;
  }

  EventQueue& queue_;
  std::map<std::string, std::deque<ScriptedAnswer>> answers_;
};

}  // namespace brelwin::test
