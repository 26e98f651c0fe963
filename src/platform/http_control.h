// An asynchronous HTTP client for posting forms: one request at a time, whose progress is told as states.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace brelwin {

struct HttpRequest {
  std::string Url;
  std::string Verb;     // "POST" or "GET"
  std::string Body;     // bytes, sent as they are
  std::string Headers;  // "Name: value" lines, divided by CR LF

  // Where it is set, asked when the connection stands and the body is about to leave, since a user may change
  // his mind while that is waited for. No ends the request with an error, and nothing of the body has left.
  std::function<bool()> MayLeave = {};
};

// The states that end a request. 1 to 10 are told on its way there and mean nothing has been decided.
inline constexpr std::int16_t HttpStateError = 11;      // there is no complete answer
inline constexpr std::int16_t HttpStateCompleted = 12;  // the answer, of whatever status, can be read

class HttpControl {
 public:
  HttpControl() = default;
  HttpControl(const HttpControl&) = delete;
  HttpControl& operator=(const HttpControl&) = delete;
  virtual ~HttpControl() = default;

  // Called from the event queue, never from inside Execute, and never for a request that has been ended. It
  // may call any function of the control.
  std::function<void(std::int16_t state)> StateChanged;

  // Ends the request before, of which nothing will be told any more, and starts this one. It is sent once:
  // what the server may have taken is never sent again. At most 5 redirects are followed, 301, 302 and 303 as
  // GET; a body never goes to another host nor from https to http. A bad certificate is refused.
  virtual void Execute(const HttpRequest& request) = 0;

  // The next bytes of the answer, at most that many; empty when all has been read.
  virtual std::string GetChunk(std::size_t atMost) = 0;

  // HTTP status and reason of the answer; after an error its number in the client's own list, never 0, and
  // what went wrong in words.
  virtual std::int32_t ResponseCode() const = 0;
  virtual std::string ResponseInfo() const = 0;

  // Ends the request; nothing will be told of it any more. What has not left the machine stays here.
  virtual void Cancel() = 0;
};

}  // namespace brelwin
