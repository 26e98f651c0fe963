// The least code that makes the same spots of a made-up feed: it knows the one shape of its items, and
// nothing is ever missing, encoded or odd.
#pragma once

#include <string_view>

#include "spots/spot.h"
#include "spots/spot_maker.h"

namespace brelwin::benchmarks {

void ReadMadeFeed(std::string_view feed, const ReadingMoment& moment, CallsignCollection& knownActivators,
                  SpotCollection& spots);

}  // namespace brelwin::benchmarks
