// The one way in which the program reads a web page or feed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host.h"

namespace brelwin {

// Whether the rest of the program may start work, such as reading another page, while this one is read.
enum class DuringTransfer : std::uint8_t { NothingStarts, OthersMayStart };

class InternetTransfer {
 public:
  explicit InternetTransfer(Host& host, DuringTransfer during = DuringTransfer::NothingStarts)
      : host_(host), during_(during) {}

  // Reads the whole body of the address as text, yielding to the event queue meanwhile. Empty when nothing
  // could be read. A page that was answered at all, 404 and 500 included, counts as opened; a body that is
  // cut ends there. Waits 30 s for the connection, 30 s for the next byte, 120 s in all, twice as long when
  // others may start, and takes 64 MiB at most; quitting ends it at once. Bytes become text line by line. A
  // fetch while another is under way is not opened.
  std::string OpenURL(std::string_view theURL);

  // Whether the last address could be opened, and "Unable to open URL" when not, else empty.
  bool LastStatus() const { return lastStatus_; }
  const std::string& LastErrorMessage() const { return lastErrorMessage_; }

  // HTTP status of the last answer, 0 without one; and what went wrong in words, for the status line.
  int LastStatusCode() const { return lastStatusCode_; }
  const std::string& LastTransportError() const { return lastTransportError_; }

  // Length of the last body as it came, in bytes.
  std::size_t LastBodyLength() const { return lastBodyLength_; }

 private:
  std::string Fetch(std::string_view theURL);

  Host& host_;
  DuringTransfer during_;
  bool lastStatus_ = false;
  std::string lastErrorMessage_;
  int lastStatusCode_ = 0;
  std::string lastTransportError_;
  std::size_t lastBodyLength_ = 0;
};

}  // namespace brelwin
