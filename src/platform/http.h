// The one HTTP and HTTPS client, for pages and forms alike. How long to wait is the caller's business;
// redirects, certificates, proxies and unpacking are the client's.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

struct HttpHeader {
  std::string Name;
  std::string Value;

  bool operator==(const HttpHeader&) const = default;
};

// The value of the header of that name, in whatever case; empty without one.
std::optional<std::string> HeaderValue(const std::vector<HttpHeader>& headers, std::string_view name);

struct HttpLimits {
  std::uint64_t MaximumBytes =
      std::uint64_t{64} * 1024 * 1024;  // of the decompressed body, cut there if longer
  int MostRedirects = 10;
};

struct HttpRequest {
  std::string Url;
  std::string Method = "GET";
  std::vector<HttpHeader> Headers = {};
  std::string Body = {};  // bytes, sent as they are
  HttpLimits Limits = {};

  // A form is not: what the server may have taken is never sent again, nor is it sent to another host or from
  // https to http.
  bool IsRepeatable = true;

  // Where it is set, asked when the connection stands and the body is about to leave, since a user may change
  // his mind while that is waited for. No ends the request with an error, and nothing of the body has left.
  std::function<bool()> MayLeave = {};

  std::string UserAgent = "VB OpenUrl";
};

struct HttpAnswer {
  int Status = 0;           // of the last answer after redirects; 0 while there is none and when none came
  std::string Reason = {};  // the words behind the status
  std::vector<HttpHeader> Headers = {};
  std::string Body = {};  // unpacked, as bytes

  // Why the answer is not complete, in words for a log or status line, and as the client numbers it. Empty
  // for a whole answer of whatever status.
  std::string ErrorText = {};
  int ErrorNumber = 0;

  // Of several lines with one name the values are joined by ", ".
  std::optional<std::string> Header(std::string_view name) const { return HeaderValue(Headers, name); }
};

// One request under way. Its end, at any time, ends the transfer at once; what has not left the machine
// stays.
class HttpTransfer {
 public:
  HttpTransfer() = default;
  HttpTransfer(const HttpTransfer&) = delete;
  HttpTransfer& operator=(const HttpTransfer&) = delete;
  virtual ~HttpTransfer() = default;

  // Called once when the transfer has finished, from the event queue and never from inside Start. It may end
  // the transfer.
  std::function<void()> Finished;

  // True when the body has ended or was cut, or no answer came.
  virtual bool IsFinished() const = 0;

  // Another number within a second of anything that comes over the wire, be it a part of a head or of a
  // compressed body that gives nothing to show yet.
  virtual std::uint64_t Activity() const = 0;

  // What has come so far; to be asked once, since nothing of it is kept. The answers on the way, redirects,
  // are none.
  virtual HttpAnswer TakeAnswer() = 0;
};

class HttpClient {
 public:
  HttpClient() = default;
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;
  virtual ~HttpClient() = default;

  // Starts the request. Nothing comes from a cache, no cookie is kept, a bad certificate is refused. After
  // 301, 302 and 303 the next address is asked with GET, without the body and the headers about it.
  virtual std::unique_ptr<HttpTransfer> Start(const HttpRequest& request) = 0;
};

}  // namespace brelwin
