// The one way in which the program reads a web page or feed: a page to its end, whatever the server does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host.h"

namespace brelwin {

// Whether the rest of the program may start work, such as reading another page, while this one is read.
enum class DuringTransfer : std::uint8_t { NothingStarts, OthersMayStart };

// Yields to the event queue until the answer is there. Waits 30 s for the connection, 30 s for the next byte
// and 120 s in all, twice as long when others may start; quitting ends it at once. What had come by then is
// the answer, with the reason as its error text. While another page is being read nothing is asked: the
// answer has no status. Never throws.
HttpAnswer FetchPage(Host& host, const HttpRequest& request,
                     DuringTransfer during = DuringTransfer::NothingStarts);

class InternetTransfer {
 public:
  explicit InternetTransfer(Host& host, DuringTransfer during = DuringTransfer::NothingStarts)
      : host_(host), during_(during) {}

  // Reads the whole body of the address as text, yielding to the event queue meanwhile. Empty when nothing
  // could be read. A page that was answered at all, 404 and 500 included, counts as opened; a body that is
  // cut ends there, as does one of more than 64 MiB. Bytes become text line by line. How long is waited, and
  // what a fetch while another is under way does: as FetchPage.
  std::string OpenURL(std::string_view theURL);

  // Whether the last address could be opened, and "Unable to open URL" when not, else empty.
  bool LastStatus() const { return answer_.Status != 0; }
  std::string LastErrorMessage() const { return LastStatus() ? "" : "Unable to open URL"; }

  // HTTP status of the last answer, 0 without one; and what went wrong in words, for the status line.
  int LastStatusCode() const { return answer_.Status; }
  const std::string& LastTransportError() const { return answer_.ErrorText; }

  // Length of the last body as it came, in bytes.
  std::size_t LastBodyLength() const { return lastBodyLength_; }

 private:
  Host& host_;
  DuringTransfer during_;
  HttpAnswer answer_;  // without its body
  std::size_t lastBodyLength_ = 0;
};

}  // namespace brelwin
