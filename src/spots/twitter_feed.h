// The Sotawatch spots that are announced on Twitter: the tweets of a search's answer turned into spots, and
// the reader that asks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/spot_maker.h"

namespace brelwin {

// The members of a result that matter, with escapes decoded; a missing one is empty.
struct Tweet {
  std::string ID;
  std::string CreatedAt;
  std::string Text;
};

struct TwitterAnswer {
  bool HasResults = false;  // whether there was an array "results" at all
  bool IsWhole = false;     // false for what is cut or is no JSON
  std::vector<Tweet> Tweets;
};

// Reads the answer without ever holding more of it than its tweets, however deep or broad it is. Half a
// surrogate pair, which cutting a text leaves behind, becomes U+FFFD.
TwitterAnswer ReadTwitterAnswer(std::string_view json);

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
