// A day of the board played again, faster than it was.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "board/board_events.h"
#include "platform/activation_store.h"
#include "platform/clock.h"

namespace brelwin {

// Which events are due. Give them to a board of their own.
class Replay {
 public:
  // Plays from `begin` to `end`, UTC. The events are in the order in which they came; those from before the
  // beginning are due at once. The speed is held between 1 and 100.
  Replay(std::vector<TimedEvent> events, DateTime begin, DateTime end, int speed, Instant now);

  // Goes on from here at another speed.
  void SetSpeed(int speed, Instant now);
  int Speed() const { return speed_; }

  // What time it is in the replay; it stands still at the end.
  DateTime TimeAt(Instant now) const;
  bool IsOver(Instant now) const { return TimeAt(now) >= end_; }

  // The events that became due since the last call. They live as long as the replay.
  std::span<const TimedEvent> Due(Instant now);

 private:
  std::vector<TimedEvent> events_;
  std::size_t next_ = 0;
  DateTime end_;
  DateTime from_;  // the time of the replay at `since_`
  Instant since_;
  int speed_;
};

// Gives the events of the UTC day that begins at `day`, as they were kept; before them those that the board
// had to know by then: the announcements, and what happened in the 4 hours before. None when nothing was
// kept. They are read hour by hour, with `mayGoOn` asked in between, which ends the reading when it says no.
// A failure of the store ends it as well, and then the day is not whole.
StoreResult EventsOfDay(ActivationStore& store, DateTime day, const std::function<bool()>& mayGoOn,
                        std::vector<TimedEvent>& events);

}  // namespace brelwin
