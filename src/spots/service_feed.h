// The spots of the JSON service: what a row says in either of its shapes, an answer turned into spots, and
// the reader that asks once, beside the schedule.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/service_client.h"
#include "spots/service_rows.h"
#include "spots/spot.h"
#include "spots/spot_maker.h"

namespace brelwin {

class ServiceSpotRow {
 public:
  explicit ServiceSpotRow(const ServiceRow& row);

  // The item, whose texts live as long as the row. `order` counts the rows of an answer from 1 on.
  FeedItem Item(std::int32_t order) const;

 private:
  void SetSummit(const ServiceRow& row);

  std::string id_;
  std::string callsigns_;
  std::string summit_;
  std::string frequency_;
  std::string mode_;
  std::string comment_;
  std::string spotter_;
  std::string operator_;
  std::optional<DateTime> time_;
  SummitDetails details_;
  SpotKind kind_ = SpotKind::Normal;
};

// Adds the spots of the answer that are not older than the age, newest first, to the vector, and the
// activators it meets for the first time to the known ones. A spot's ID is that of the service. Sets End,
// LearnedActivators, SkippedItems and HasMore of the result. The end Gone: the list is empty or holds a row
// by which the service says that it has been given up; NoFeed: the answer is no list. `goesOn` is asked
// before each row; no ends the reading as if the answer had been cut there.
void ReadServiceSpots(
    std::string_view answer, std::int64_t maximumAgeInMinutes, const ReadingMoment& moment,
    CallsignCollection& knownActivators, std::vector<MadeSpots>& spots, FeedReadResult& result,
    const std::function<bool()>& goesOn = [] { return true; });

// The spots that are not older than the age, newest first and without those that are only shown. None when
// the service could not be read, or wants to be left alone.
std::vector<SpotPointer> ReadServiceBeside(Host& host, ServiceClient& client, std::string_view root,
                                           std::int64_t maximumAgeInMinutes,
                                           CallsignCollection& knownActivators);

}  // namespace brelwin
