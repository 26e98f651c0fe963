// Reads the Sotawatch spot feed in its RSS form and turns its items into spots.
#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

struct RSSReadRequest {
  std::string Url;               // never empty: the built-in address is configuration
  std::string PreviousNewestID;  // of the newest item of the previous read, or empty
  std::int64_t MaximumAgeInMinutes = 0;
  bool KeyByStationAndFrequency = false;  // else spots are keyed by their ID
};

// How far a read came. Only a whole feed or a known place in it proves that nothing was missed.
enum class FeedEnd : std::uint8_t { NotOpened, NoFeed, Cut, ReachedPrevious, ReachedAgeLimit, EndOfFeed };

struct RSSReadResult {
  FeedEnd End = FeedEnd::NotOpened;
  std::string NewestID;  // of the first item of the feed; empty without one
  std::string ErrorText;
  std::string StatusText;  // what the server answered, in words for the status line
};

// Fetches the feed, keeps a copy of it as "SotawatchSpotsRSS.txt" and adds its spots, newest first, to the
// collection. New activators are added to the known ones and to "SOTAActivators.txt". NotOpened: the feed
// could not be reached; NoFeed: something was answered, but no feed; in both cases the collection is as it
// was.
RSSReadResult ReadSotawatchRSS(Host& host, const RSSReadRequest& request, CallsignCollection& knownActivators,
                               SpotCollection& spots);

}  // namespace brelwin
