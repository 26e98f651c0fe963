// The script as the world sees it: which spots have been published by now, at the present time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

#include "scripted_spot.h"

namespace practice {

struct PublishedSpot {
  std::int64_t Time = 0;  // UTC, in seconds since 1970
  ScriptedSpot What;

  // Grows from spot to spot, also over a restart.
  std::int64_t Identity() const { return Time << 12; }

  bool operator==(const PublishedSpot&) const = default;
};

// When a second of the script happens: what lies before the start at its true distance, what comes after it
// `speed` times as fast as the clock.
std::int64_t PresentTime(std::int64_t scriptSecond, double speed, std::int64_t origin);

class Feed {
 public:
  // `origin` is the moment of the start, in seconds since 1970. The script runs `speed` times as fast as the
  // clock from there on; what lies before it is published at its true distance. The script never ends.
  Feed(std::uint64_t seed, double speed, std::int64_t origin);

  // The spots published until now, newest first, `count` at most. No two share a second, so that a station
  // that is spotted twice in a hurry is still two spots to everyone. A clock that steps back takes nothing
  // away.
  std::vector<PublishedSpot> Newest(std::int64_t now, std::size_t count);

 private:
  std::int64_t MomentOf(const ScriptedSpot& spot) const;
  void ReadNextDay();

  std::uint64_t seed_;
  double speed_;
  std::int64_t origin_;
  std::int64_t nextDay_ = -1;
  std::deque<ScriptedSpot> upcoming_;
  std::deque<PublishedSpot> published_;  // newest first
};

// The feed for several threads.
class SharedFeed {
 public:
  explicit SharedFeed(Feed feed) : feed_(std::move(feed)) {}

  std::vector<PublishedSpot> Newest(std::int64_t now, std::size_t count) {
    const std::scoped_lock lock(mutex_);
    return feed_.Newest(now, count);
  }

 private:
  Feed feed_;
  std::mutex mutex_;
};

}  // namespace practice
