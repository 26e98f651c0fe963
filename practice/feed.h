// The script as the world sees it: which spots have been published by now, at the present time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include "scripted_spot.h"

namespace practice {

struct PublishedSpot {
  std::int64_t Time = 0;  // UTC, in seconds since 1970
  ScriptedSpot What;
  bool IsDated = true;  // false: the feed does not tell the time

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
  Feed(std::uint64_t seed, double speed, std::int64_t origin, std::size_t crowd = 0);

  // The spots published until now, newest first, `count` at most. No two share a second, so that a station
  // that is spotted twice in a hurry is still two spots to everyone. A clock that steps back takes nothing
  // away.
  std::vector<PublishedSpot> Newest(std::int64_t now, std::size_t count);

  // Who has come on the air until now, whether spotted or not, the latest first, `count` at most.
  std::vector<PublishedSpot> OnTheAir(std::int64_t now, std::size_t count);

  // Publishes a spot that somebody posted, as soon as it is `moment`.
  void Publish(ScriptedSpot spot, std::int64_t moment);

 private:
  void Advance(std::int64_t now);
  bool PublishNextPosted(std::int64_t until);
  bool PlayNextScripted(std::int64_t until);
  std::int64_t FreeMoment(std::int64_t wanted) const;
  std::int64_t NextPostedMoment() const;
  void ReadNextDay();

  std::uint64_t seed_;
  double speed_;
  std::int64_t origin_;
  std::size_t crowd_;
  std::int64_t nextDay_ = -1;
  std::deque<ScriptedSpot> upcoming_;
  std::multimap<std::int64_t, ScriptedSpot> posted_;  // by the moment at which they are to be published
  std::deque<PublishedSpot> published_;               // newest first
  std::deque<PublishedSpot> onTheAir_;                // latest first
};

// The feed for several threads.
class SharedFeed {
 public:
  explicit SharedFeed(Feed feed) : feed_(std::move(feed)) {}

  std::vector<PublishedSpot> Newest(std::int64_t now, std::size_t count) {
    const std::scoped_lock lock(mutex_);
    return feed_.Newest(now, count);
  }

  std::vector<PublishedSpot> OnTheAir(std::int64_t now, std::size_t count) {
    const std::scoped_lock lock(mutex_);
    return feed_.OnTheAir(now, count);
  }

  void Publish(ScriptedSpot spot, std::int64_t moment) {
    const std::scoped_lock lock(mutex_);
    feed_.Publish(std::move(spot), moment);
  }

 private:
  Feed feed_;
  std::mutex mutex_;
};

}  // namespace practice
