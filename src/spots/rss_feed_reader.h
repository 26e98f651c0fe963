// Reads the Sotawatch spot feed in its RSS form and turns its items into spots.
#pragma once

#include "platform/host.h"
#include "spots/rss_feed_text.h"

namespace brelwin {

// Fetches the feed, keeps a copy of it as "SotawatchSpotsRSS.txt" and adds its spots, newest first, to the
// collection. New activators are added to the known ones and to "SOTAActivators.txt". The end NotOpened: the
// feed could not be reached; NoFeed: something was answered, but no feed; in both cases the collection is as
// it was.
FeedReadResult ReadSotawatchRSS(Host& host, const RSSReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots);

}  // namespace brelwin
