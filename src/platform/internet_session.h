// Reading one page over HTTP or HTTPS, without blocking. How long to wait and how much to take is the
// caller's business; redirects, decompression, certificates and proxies are the port's.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace brelwin {

struct PageQuery {
  std::string Url;
  std::string UserAgent;
  std::uint64_t MaximumBytes = 0;  // of the unpacked body; a longer one is cut there
};

// One page under way. Its end, at any time, ends the transfer at once.
class PageRequest {
 public:
  enum class State : std::uint8_t { Connecting, Receiving, Finished };

  PageRequest() = default;
  PageRequest(const PageRequest&) = delete;
  PageRequest& operator=(const PageRequest&) = delete;
  virtual ~PageRequest() = default;

  // Receiving from the first byte of an answer on; Finished when the body has ended, was cut, or nothing
  // came.
  virtual State CurrentState() const = 0;

  // Another number than before whenever something has come over the wire meanwhile, be it a part of a head or
  // of a packed body that gives nothing to show yet.
  virtual std::uint64_t Activity() const = 0;

  // HTTP status of the answer, of the last one after redirects; 0 while there is none and when none came, as
  // when the target of a redirect cannot be reached.
  virtual int StatusCode() const = 0;

  // The unpacked body received so far, as bytes.
  virtual const std::string& Body() const = 0;

  // What went wrong, in words for a log or status line; empty when nothing did.
  virtual std::string ErrorText() const = 0;
};

class InternetSession {
 public:
  InternetSession() = default;
  InternetSession(const InternetSession&) = delete;
  InternetSession& operator=(const InternetSession&) = delete;
  virtual ~InternetSession() = default;

  // Starts reading a page. Never from a cache, never with conditional headers. A bad certificate is refused.
  virtual std::unique_ptr<PageRequest> OpenUrl(const PageQuery& query) = 0;
};

}  // namespace brelwin
