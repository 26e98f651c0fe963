// Time and events as tests need them: time jumps, it never passes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "platform/clock.h"
#include "platform/event_queue.h"

namespace brelwin::test {

class TestClock final : public Clock {
 public:
  Instant Now() const override { return now_ += PerLook; }
  DateTime LocalNow() const override { return AddSeconds(wallAtStart_, SecondsBetween(Instant{}, now_)); }
  TimeZoneInformation GetTimeZoneInformation() const override { return Zone; }

  void MoveTo(Instant instant) { now_ = std::max(now_, instant); }
  void SetLocalTime(DateTime local) { wallAtStart_ = AddSeconds(local, -SecondsBetween(Instant{}, now_)); }

  TimeZoneInformation Zone{TimeZoneInformation::State::Standard, 0, 0,
                           0};  // UTC unless a test says otherwise

  Milliseconds PerLook{};  // what passes between two looks at the clock

 private:
  mutable Instant now_{};
  DateTime wallAtStart_ = *DateTimeFromCalendar({2026, 11, 24, 12, 0, 0});
};

// Runs what is due in the order (time, sequence). A wait with nothing due moves the clock to the next event.
class TestQueue final : public EventQueue {
 public:
  explicit TestQueue(TestClock& clock) : clock_(clock) {}

  void DoEvents() override {
    ++Yields;
    if (OnYield) OnYield();
    RunDue(clock_.Now());
  }

  void WaitForEvents(Milliseconds atMost) override {
    ++Yields;
    if (OnYield) OnYield();
    if (RunDue(clock_.Now())) return;
    const auto until = clock_.Now() + atMost;
    clock_.MoveTo(events_.empty() ? until : std::min(until, events_.begin()->first.first));
    RunDue(clock_.Now());
  }

  TimerHandle CallAfter(Milliseconds delay, std::function<void()> function) override {
    auto alive = std::make_shared<std::function<void()>>(std::move(function));
    events_.emplace(std::pair(clock_.Now() + delay, ++sequence_), alive);
    return TimerHandle(std::move(alive));
  }

  void Quit() override { HasQuit = true; }

  // Lets the world go on for a while, or until the program has quit.
  void RunFor(Milliseconds duration) {
    const auto end = clock_.Now() + duration;
    while (!HasQuit && !events_.empty() && events_.begin()->first.first <= end) {
      clock_.MoveTo(events_.begin()->first.first);
      RunDue(clock_.Now());
    }
    if (!HasQuit) clock_.MoveTo(end);
  }

  bool HasQuit = false;
  int Yields = 0;
  std::function<void()> OnYield;  // an intruder: runs at every yield of the program

 private:
  bool RunDue(Instant now) {
    bool ran = false;
    const auto last = sequence_;
    while (!events_.empty() && events_.begin()->first.first <= now && events_.begin()->first.second <= last) {
      const auto function = events_.begin()->second.lock();
      events_.erase(events_.begin());
      if (function) (*function)();
      ran = ran || function;
    }
    return ran;
  }

  TestClock& clock_;
  std::int64_t sequence_ = 0;
  std::map<std::pair<Instant, std::int64_t>, std::weak_ptr<std::function<void()>>> events_;
};

}  // namespace brelwin::test
