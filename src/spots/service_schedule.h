// When a list of the JSON service may be asked for: once a minute at most, less often while it fails, and not
// before the service itself wants to be asked again.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/clock.h"

namespace brelwin {

class ServiceSchedule {
 public:
  using Random = std::function<double()>;  // evenly spread, from 0 to below 1

  explicit ServiceSchedule(Random random) : random_(std::move(random)) {}

  // Whether the service may be asked; and from when on, empty while that is at once.
  bool MayAsk(Instant now) const;
  std::optional<Instant> NextAsk(Instant now) const;

  // Whether a single question may be put beside the schedule. Only the service's own wish stands against it.
  bool MayAskBeside(Instant now) const { return now >= refusedUntil_; }

  // Whether it is time for the whole list, which tells what has been deleted.
  bool IsWholeListDue(Instant now) const;

  // A round of questions begins; it was answered as it should; it failed, and the service may have said how
  // long it wants to be left alone.
  void NoteAsked(Instant now);
  void NoteSuccess() { failures_ = 0; }
  void NoteFailure(Instant now, std::optional<std::chrono::seconds> retryAfter);

  void NoteWholeList(Instant now) { wholeListAt_ = now; }

  // The next round asks for the whole list.
  void WantWholeList() { wholeListAt_.reset(); }

 private:
  Random random_;
  Instant notBefore_ = Instant::min();
  Instant refusedUntil_ = Instant::min();
  std::optional<Instant> wholeListAt_;
  int failures_ = 0;  // in a row
};

}  // namespace brelwin
