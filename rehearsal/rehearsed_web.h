// The practice network's site behind the program's own port: pages and posts in one process, on a clock that
// jumps.
#pragma once

#include <memory>

#include "platform/event_queue.h"
#include "platform/http.h"
#include "random.h"
#include "rehearsal_clock.h"
#include "site.h"

namespace rehearsal {

class RehearsedWeb final : public brelwin::HttpClient {
 public:
  RehearsedWeb(brelwin::EventQueue& queue, practice::Site& site, const RehearsalClock& clock,
               std::uint64_t seed)
      : queue_(queue), site_(site), clock_(clock), random_(seed, 601) {}

  std::unique_ptr<brelwin::HttpTransfer> Start(const brelwin::HttpRequest& request) override;

 private:
  class Transfer;

  // Milliseconds from a request to the last byte: a little, drawn from the seed.
  brelwin::Milliseconds TimeFor(const practice::Exchange& exchange);

  brelwin::EventQueue& queue_;
  practice::Site& site_;
  const RehearsalClock& clock_;
  practice::Random random_;
};

}  // namespace rehearsal
