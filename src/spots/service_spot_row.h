// What a row of the service's spots says, in either of its shapes, in the form of a feed's item.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "spots/service_rows.h"
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

}  // namespace brelwin
