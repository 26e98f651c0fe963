// The spot intake: reads the chosen Sotawatch feed and delivers each spot once.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "intake/service_intake.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/spot.h"

namespace brelwin {

enum class SpotSource : std::uint8_t { RSS, Twitter, Service };

class SpotIntake {
 public:
  SpotIntake(Host& host, ServiceClient& service);
  ~SpotIntake();

  // Reads the feed (RSS, the Twitter search, which is asked for spots newer than `twitterSinceID`, or the
  // JSON service, which is asked no more often than it wants, and not before its terms are confirmed) and
  // fills `newSpots`, newest first, with the spots of the last 24 hours that it has not delivered before.
  // Returns -1 on success, -100 when the feed could not be reached, 0 when what was answered is no feed or
  // breaks off; the spots read before it broke off are delivered all the same. The error text is cleared on
  // entry.
  std::int32_t GetSotawatchSpots(SpotSource source, const URLTemplates& addresses, const TestSettings& test,
                                 CallsignCollection& knownActivators,
                                 const CallsignCollection& trustedSpotters, std::string& twitterSinceID,
                                 SpotCollection& newSpots, std::string& errorText);

  // Forgets what was delivered, so that the next read delivers everything anew. When that read does not
  // succeed it delivers nothing, and what was delivered is remembered again.
  void Forget();

  // What the JSON service has changed in spots that were delivered before, since this was last asked.
  SpotChanges TakeChanges();

  // Whether the service has said that it is given up.
  bool IsFeedGone() const;

  // What the feed last answered, in words for the status line; empty before the first read.
  const std::string& StatusText() const;

  // That the newest spot of the feed is too old to be read, and how old; empty when it is not, as above.
  const std::string& AgeText() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace brelwin
