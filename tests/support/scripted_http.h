// The server of forms as a script: one answer per post, in order, arriving when the test says so.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_queue.h"
#include "platform/http_control.h"

namespace brelwin::test {

struct ScriptedPost {
  int Status = 200;
  std::string Body = {};
  Milliseconds Connecting{0};  // before the form leaves
  Milliseconds Delay{10};      // a negative one: no answer ever
  int ErrorNumber = 0;         // not 0: there is no complete answer
  std::string Info = "OK";
  std::size_t FailAtChunk = 0;  // the chunk with this number, from 1, throws
  std::size_t LongestChunk = std::string::npos;
};

class ScriptedHttp final : public HttpControl {
 public:
  explicit ScriptedHttp(EventQueue& queue) : queue_(queue) {}

  void Answer(ScriptedPost answer) { answers_.push_back(std::move(answer)); }

  void Execute(const HttpRequest& request) override {
    answer_ = TakeAnswer(request);
    read_ = 0;
    chunks_ = 0;
    timer_ = {};
    if (answer_.Connecting == Milliseconds::zero()) return Leave(request);
    timer_ = queue_.CallAfter(answer_.Connecting, [this, request] {
      const auto finished = std::move(timer_);
      Leave(request);
    });
  }

  std::string GetChunk(std::size_t atMost) override {
    if (++chunks_ == answer_.FailAtChunk) throw std::runtime_error("chunk lost");
    auto chunk =
        answer_.Body.substr(std::min(read_, answer_.Body.size()), std::min(atMost, answer_.LongestChunk));
    read_ += chunk.size();
    return chunk;
  }

  std::int32_t ResponseCode() const override {
    return answer_.ErrorNumber != 0 ? answer_.ErrorNumber : answer_.Status;
  }
  std::string ResponseInfo() const override { return answer_.Info; }

  void Cancel() override {
    ++Cancelled;
    timer_ = {};
    answer_ = {};
  }

  std::function<ScriptedPost(const HttpRequest&)> Serve;  // makes the answers that are not set one by one
  std::vector<HttpRequest> Requests;                      // of which the form has left
  int Cancelled = 0;

 private:
  void Leave(const HttpRequest& request) {
    if (request.MayLeave && !request.MayLeave()) {
      answer_ = {.Delay = Milliseconds(0), .ErrorNumber = 5, .Info = "Held back"};
    } else {
      Requests.push_back(request);
    }
    if (answer_.Delay >= Milliseconds::zero()) timer_ = queue_.CallAfter(answer_.Delay, [this] { Tell(); });
  }

  void Tell() {
    const auto finished = std::move(timer_);
    const auto state = answer_.ErrorNumber != 0 ? HttpStateError : HttpStateCompleted;
    if (StateChanged) StateChanged(7);
    if (StateChanged) StateChanged(state);
  }

  ScriptedPost TakeAnswer(const HttpRequest& request) {
    if (answers_.empty() && Serve) return Serve(request);
    if (answers_.empty()) return {.ErrorNumber = 1, .Info = "Connection refused"};
    auto answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }

  EventQueue& queue_;
  std::deque<ScriptedPost> answers_;
  ScriptedPost answer_;
  std::size_t read_ = 0;
  std::size_t chunks_ = 0;
  TimerHandle timer_;
};

}  // namespace brelwin::test
