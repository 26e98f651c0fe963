// Reads the Sotawatch spots that are announced on Twitter, by a search.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/spot_maker.h"

namespace brelwin {

struct TwitterReadRequest {
  std::string UrlTemplate;  // "ZZZZ" in it stands for SinceID
  std::string SinceID;      // of the newest tweet known; empty asks for all
  std::int64_t MaximumAgeInMinutes = 0;
};

// Adds the spots of the search answer, newest first, to the collection, keyed by the tweets' IDs; of two
// stations the second is keyed by its own identity. Tweets that are not newer than SinceID or are too old are
// left out. A cut answer adds nothing: what it lacks is the older part, which could not be asked for again.
// Sets End, NewestID, LearnedActivators and SkippedItems of the result.
void ReadTwitterText(std::string_view text, const TwitterReadRequest& request, const ReadingMoment& moment,
                     CallsignCollection& knownActivators, SpotCollection& spots, FeedReadResult& result);

// Fetches the search answer and reads it; NotOpened, NoFeed and Cut leave the collection as it was.
FeedReadResult ReadTwitterSpots(Host& host, const TwitterReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots);

}  // namespace brelwin
