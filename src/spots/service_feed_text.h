// Turns the text of an answer of the JSON service into spots: no network, no files.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "spots/feed_result.h"
#include "spots/spot_maker.h"

namespace brelwin {

// Adds the spots of the answer that are not older than the age, newest first, to the vector, and the
// activators it meets for the first time to the known ones. A spot's ID is that of the service. Sets End,
// LearnedActivators, SkippedItems and HasMore of the result. The end Gone: the list is empty or holds a row
// by which the service says that it has been given up; NoFeed: the answer is no list. `goesOn` is asked
// before each row; no ends the reading as if the answer had been cut there.
void ReadServiceSpots(
    std::string_view answer, std::int64_t maximumAgeInMinutes, const ReadingMoment& moment,
    CallsignCollection& knownActivators, std::vector<MadeSpots>& spots, FeedReadResult& result,
    const std::function<bool()>& goesOn = [] { return true; });

}  // namespace brelwin
