// Reading one page to its end, whatever the server does.
#pragma once

#include <cstdint>

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

}  // namespace brelwin
