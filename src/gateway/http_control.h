// Posts forms, one at a time, and tells their progress as states.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/event_queue.h"
#include "platform/http.h"

namespace brelwin {

// The states that end a request.
inline constexpr std::int16_t HttpStateError = 11;      // there is no complete answer
inline constexpr std::int16_t HttpStateCompleted = 12;  // the answer, of whatever status, can be read

class HttpControl {
 public:
  // Client and queue must outlive it.
  HttpControl(HttpClient& client, EventQueue& events) : client_(client), events_(events) {}
  HttpControl(const HttpControl&) = delete;
  HttpControl& operator=(const HttpControl&) = delete;

  // Called from the event queue, never from inside Execute, and never for a request that has been ended. It
  // may call any function of the control.
  std::function<void(std::int16_t state)> StateChanged;

  // Ends the request before, of which nothing will be told any more, and posts this form. It is sent once. At
  // most 5 redirects are followed, 120 s are waited for the whole answer, and 16 MiB are taken of it. For
  // `mayLeave` see HttpRequest; a no is an error.
  void Execute(std::string url, std::string body, std::string contentType,
               std::function<bool()> mayLeave = {});

  // The next bytes of the answer, at most that many; empty when all has been read.
  std::string GetChunk(std::size_t atMost);

  // HTTP status and reason of the answer; after an error its number in the client's own list, never 0, and
  // what went wrong in words.
  std::int32_t ResponseCode() const;
  std::string ResponseInfo() const;

  // Ends the request; nothing will be told of it any more. What has not left the machine stays here.
  void Cancel();

 private:
  void End(HttpAnswer answer);

  HttpClient& client_;
  EventQueue& events_;
  std::unique_ptr<HttpTransfer> transfer_;
  TimerHandle limit_;
  HttpAnswer answer_;
  std::size_t read_ = 0;
};

}  // namespace brelwin
