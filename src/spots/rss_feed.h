// Sotawatch's spot feed in its RSS form: its text turned into spots, and the reader that fetches it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/spot_maker.h"

namespace brelwin {

struct RSSReadRequest {
  std::string Url;               // never empty: the built-in address is configuration
  std::string PreviousNewestID;  // of the newest item of the previous read, or empty
  std::int64_t MaximumAgeInMinutes = 0;
  bool KeyByStationAndFrequency = false;    // else spots are keyed by their ID
  std::vector<SpotPointer>* All = nullptr;  // gets every spot, also one whose key is there already
};

// Adds the spots of the feed, newest first, to the collection and the activators it meets for the first time
// to the known ones. Sets End, NewestID, AgeText, LearnedActivators and SkippedItems of the result, which
// keep what was found when an error ends the reading. `goesOn` is asked before each item; no ends the reading
// as if the text had been cut there.
void ReadFeedText(
    std::string_view text, const RSSReadRequest& request, const ReadingMoment& moment,
    CallsignCollection& knownActivators, SpotCollection& spots, FeedReadResult& result,
    const std::function<bool()>& goesOn = [] { return true; });

// Fetches the feed, keeps a copy of it as "SotawatchSpotsRSS.txt" and adds its spots, newest first, to the
// collection. New activators are added to the known ones and to "SOTAActivators.txt". The end NotOpened: the
// feed could not be reached; NoFeed: something was answered, but no feed; in both cases the collection is as
// it was.
FeedReadResult ReadSotawatchRSS(Host& host, const RSSReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots);

}  // namespace brelwin
