// Turns what a feed says of a spot into Spot records, in the same way for every Sotawatch feed, and learns
// activators on the way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/spot.h"
#include "spots/spot_title.h"
#include "spots/summit_details.h"

namespace brelwin {

// What does not change while a feed is being read.
struct ReadingMoment {
  DateTime UTCNow;
  Instant Now{};                    // the same moment on the clock that does not jump
  std::int32_t TimeZoneOffset = 0;  // minutes to add to local time to get UTC
};

ReadingMoment ReadingMomentOf(const Host& host);

// What a feed says of one spot. The texts point into the feed's.
struct FeedItem {
  std::string_view ID;  // where the feed gives one; else it is made of time, station and spotter
  SpotTitle Title;
  std::string_view Comment;
  std::string_view Spotter;
  std::optional<DateTime> UTCDateTime;
  std::int32_t OrderReceived = 0;
  SpotKind Kind = SpotKind::Normal;
  std::string_view OperatorName = {};
  SummitDetails Summit = {};
};

// The spot of an item, and that of its second station when the item names two.
struct MadeSpots {
  SpotPointer First;
  SpotPointer Second;
};

class SpotMaker {
 public:
  SpotMaker(const ReadingMoment& moment, CallsignCollection& knownActivators,
            std::vector<std::string>& learnedActivators)
      : moment_(moment), knownActivators_(knownActivators), learnedActivators_(learnedActivators) {}

  // Nothing when the item names no station. Activators that are not known yet are added to the known and to
  // the learned ones, but for those of test spots. `SpotKey` (of a first spot) and `SpotterIsTrustedSpotter`
  // are left to the caller.
  MadeSpots MakeSpots(const FeedItem& item);

 private:
  bool WasKnown(const Spot& spot);  // else the activator is learned
  SpotPointer MakeFirst(const FeedItem& item, std::string& secondCallsign);
  SpotPointer MakeSecond(const Spot& first, const std::string& callsign);
  std::string Identity(const Spot& spot) const;

  ReadingMoment moment_;
  CallsignCollection& knownActivators_;
  std::vector<std::string>& learnedActivators_;
};

}  // namespace brelwin
